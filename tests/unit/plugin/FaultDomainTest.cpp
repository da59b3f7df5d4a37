#include "Cases.h"

using namespace Testing;

namespace {

/// `count` characters of three bytes each.
std::string Wide(std::size_t count) {
  std::string text;
  while (count-- > 0) text += "\u20ac";
  return text;
}

const SetUp kNotEnabled = [](RecordingLibrary& library) { library.config.enabled = false; };

TEST(FaultDomainGet, ShowsNameAndId) {
  const Strings named = kOpen + "GetFaultDomainName()" + "GetClusterConfig()";
  Check("faultdomain get", named + "GetFaultDomainId()",
        {"{faultDomainName: site-a, faultDomainId: fault-domain-id}", {}});
  Check("faultdomain get", kNotEnabled, named, {"{faultDomainName: site-a, faultDomainId: }", {}});
}

TEST(FaultDomainSet, CountsBytesAndLeavesTrue) {
  const std::string longest = Wide(85) + "x";  // 256 bytes
  Check("faultdomain set --fdname " + longest + "x", {},
        Failed("Fault domain name cannot exceed 256 characters.", "true"));
  Check("faultdomain set --fdname " + longest, kOpen + ("SetFaultDomain(" + longest + ")"), kTrue);
}

TEST(FaultDomainPreferredGet, NeedsAStretchedCluster) {
  const std::string command = "cluster preferredfaultdomain get";
  const auto together = [](RecordingLibrary& library) { library.stretched = false; };
  const Outcome refused =
      Failed("Cannot get preferred fault domain if host is not in a stretched cluster.");
  const Strings first = kOpen + "GetClusterConfig()";
  const Strings both = first + "IsInStretchedCluster()";
  Check(command, kNotEnabled, first, refused);
  Check(command, together, both, refused);
  Check(command, both + "GetPreferredFaultDomainInfo()",
        {"{Preferred Fault Domain Name: preferred-name, Preferred Fault Domain Id: preferred-id}",
         {}});
}

TEST(FaultDomainPreferredSet, CountsCharactersOnTheWitnessOnly) {
  const std::string command = "cluster preferredfaultdomain set --preferred-fault-domain-name ";
  const auto onWitness = [](RecordingLibrary& library) { library.isWitness = true; };
  const Strings asked = {"IsWitnessNode()"};
  Check(command + "''", {}, Failed("Cannot set preferred fault domain name as empty."));
  Check(command + Wide(257), {},
        Failed("Preferred Fault domain name cannot exceed 256 characters.", "true"));
  Check(command + "site-b", asked,
        Failed("Cannot set preferred fault domain if the host is not a witness node.", "true"));
  Check(command + Wide(256), onWitness,
        asked + kOpen[0] + kOpen[1] + ("SetPreferredFaultDomain(" + Wide(256) + ")"), kTrue);
}

}  // namespace
