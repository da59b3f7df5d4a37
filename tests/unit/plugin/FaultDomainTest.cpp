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
  const Strings named = kOpen + Strings{"GetFaultDomainName()", "GetClusterConfig()"};
  Check("faultdomain get", {}, {}, named + Strings{"GetFaultDomainId()"},
        {"{faultDomainName: site-a, faultDomainId: fault-domain-id}", {}});
  Check("faultdomain get", kNotEnabled, {}, named,
        {"{faultDomainName: site-a, faultDomainId: }", {}});
}

TEST(FaultDomainSet, CountsBytesAndLeavesTrue) {
  const std::string longest = Wide(85) + "x";  // 256 bytes
  const Outcome tooLong = Failed("Fault domain name cannot exceed 256 characters.", "true");
  Check("faultdomain set", {}, {{"fdname", longest + "x"}}, {}, tooLong);
  Check("faultdomain set", {}, {{"fdname", Wide(100)}}, {}, tooLong);
  Check("faultdomain set", {}, {{"fdname", longest}},
        kOpen + Strings{"SetFaultDomain(" + longest + ")"}, kTrue);
  Check("faultdomain set", {}, {{"fdname", ""}}, kOpen + Strings{"ResetFaultDomain()"}, kTrue);
}

TEST(FaultDomainReset, IsOneRequest) {
  Check("faultdomain reset", {}, {}, kOpen + Strings{"ResetFaultDomain()"}, kTrue);
}

TEST(FaultDomainPreferredGet, NeedsAStretchedCluster) {
  const char* const command = "cluster preferredfaultdomain get";
  const Outcome refused =
      Failed("Cannot get preferred fault domain if host is not in a stretched cluster.");
  const Strings first = kOpen + Strings{"GetClusterConfig()"};
  const Strings both = first + Strings{"IsInStretchedCluster()"};
  Check(command, kNotEnabled, {}, first, refused);
  Check(
      command, [](RecordingLibrary& library) { library.stretched = false; }, {}, both, refused);
  Check(command, {}, {}, both + Strings{"GetPreferredFaultDomainInfo()"},
        {"{Preferred Fault Domain Name: preferred-name, Preferred Fault Domain Id: preferred-id}",
         {}});
}

TEST(FaultDomainPreferredSet, CountsCharactersOnTheWitnessOnly) {
  const char* const command = "cluster preferredfaultdomain set";
  const auto named = [](const std::string& name) {
    return Given{{"preferred-fault-domain-name", name}};
  };
  const Strings asked = {"IsWitnessNode()"};
  Check(command, {}, named(""), {}, Failed("Cannot set preferred fault domain name as empty."));
  Check(command, {}, named(Wide(257)), {},
        Failed("Preferred Fault domain name cannot exceed 256 characters.", "true"));
  Check(command, {}, named("site-b"), asked,
        Failed("Cannot set preferred fault domain if the host is not a witness node.", "true"));
  Check(
      command, [](RecordingLibrary& library) { library.isWitness = true; }, named(Wide(256)),
      asked + kOpen + Strings{"SetPreferredFaultDomain(" + Wide(256) + ")"}, kTrue);
}

TEST(FaultDomainMaintenance, CancelNeedsNoLibraryObject) {
  Check("maintenancemode cancel", {}, {}, {"DecomCancel()"}, kTrue);
}

}  // namespace
