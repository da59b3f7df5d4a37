#include "Cases.h"
#include "cluster/ClusterCommands.h"

using namespace OrvaneCli::DovraNamespace;
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
  Check<FaultDomainGet>({}, {}, named + Strings{"GetFaultDomainId()"},
                        {"{faultDomainName: site-a, faultDomainId: fault-domain-id}", {}});
  Check<FaultDomainGet>(kNotEnabled, {}, named, {"{faultDomainName: site-a, faultDomainId: }", {}});
}

TEST(FaultDomainSet, CountsBytesAndLeavesTrue) {
  const std::string longest = Wide(85) + "x";  // 256 bytes
  const Outcome tooLong = Failed("Fault domain name cannot exceed 256 characters.", "true");
  Check<FaultDomainSet>({}, {{"fdname", longest + "x"}}, {}, tooLong);
  Check<FaultDomainSet>({}, {{"fdname", Wide(100)}}, {}, tooLong);
  Check<FaultDomainSet>({}, {{"fdname", longest}},
                        kOpen + Strings{"SetFaultDomain(" + longest + ")"}, kTrue);
  Check<FaultDomainSet>({}, {{"fdname", ""}}, kOpen + Strings{"ResetFaultDomain()"}, kTrue);
}

TEST(FaultDomainReset, IsOneRequest) {
  Check<FaultDomainReset>({}, {}, kOpen + Strings{"ResetFaultDomain()"}, kTrue);
}

TEST(FaultDomainPreferredGet, NeedsAStretchedCluster) {
  using Command = ClusterPreferredFaultDomainGet;
  const Outcome refused =
      Failed("Cannot get preferred fault domain if host is not in a stretched cluster.");
  const Strings first = kOpen + Strings{"GetClusterConfig()"};
  const Strings both = first + Strings{"IsInStretchedCluster()"};
  Check<Command>(kNotEnabled, {}, first, refused);
  Check<Command>([](RecordingLibrary& library) { library.stretched = false; }, {}, both, refused);
  Check<Command>(
      {}, {}, both + Strings{"GetPreferredFaultDomainInfo()"},
      {"{Preferred Fault Domain Name: preferred-name, Preferred Fault Domain Id: preferred-id}",
       {}});
}

TEST(FaultDomainPreferredSet, CountsCharactersOnTheWitnessOnly) {
  using Command = ClusterPreferredFaultDomainSet;
  const auto named = [](const std::string& name) {
    return Given{{"preferred-fault-domain-name", name}};
  };
  const Strings asked = {"IsWitnessNode()"};
  Check<Command>({}, named(""), {}, Failed("Cannot set preferred fault domain name as empty."));
  Check<Command>({}, named(Wide(257)), {},
                 Failed("Preferred Fault domain name cannot exceed 256 characters.", "true"));
  Check<Command>(
      {}, named("site-b"), asked,
      Failed("Cannot set preferred fault domain if the host is not a witness node.", "true"));
  Check<Command>([](RecordingLibrary& library) { library.isWitness = true; }, named(Wide(256)),
                 asked + kOpen + Strings{"SetPreferredFaultDomain(" + Wide(256) + ")"}, kTrue);
}

TEST(FaultDomainMaintenance, CancelNeedsNoLibraryObject) {
  Check<MaintenanceModeCancel>({}, {}, {"DecomCancel()"}, kTrue);
}

}  // namespace
