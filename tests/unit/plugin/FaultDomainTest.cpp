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
  CheckEachFailure<FaultDomainGet>(
      {}, {}, named + Strings{"GetFaultDomainId()"},
      Failed("Unable to get fault domain name: broken"),
      {"{faultDomainName: site-a, faultDomainId: fault-domain-id}", {}});
  Check<FaultDomainGet>(kNotEnabled, {}, named, {"{faultDomainName: site-a, faultDomainId: }", {}});
}

TEST(FaultDomainSet, CountsBytesAndAlwaysLeavesTrue) {
  const std::string longest = Wide(85) + "x";  // 256 bytes
  const Outcome tooLong = Failed("Fault domain name cannot exceed 256 characters.", "true");
  const Outcome failed = Failed("Unable to set fault domain name: broken", "true");
  Check<FaultDomainSet>({}, {{"fdname", longest + "x"}}, {}, tooLong);
  Check<FaultDomainSet>({}, {{"fdname", Wide(100)}}, {}, tooLong);
  CheckEachFailure<FaultDomainSet>({}, {{"fdname", longest}},
                                   kOpen + Strings{"SetFaultDomain(" + longest + ")"}, failed);
  CheckEachFailure<FaultDomainSet>({}, {{"fdname", ""}}, kOpen + Strings{"ResetFaultDomain()"},
                                   failed);
}

TEST(FaultDomainReset, LeavesTrueAndKeepsTheReasonToItself) {
  CheckEachFailure<FaultDomainReset>({}, {}, kOpen + Strings{"ResetFaultDomain()"},
                                     Failed("Unable to reset fault domain name", "true"));
}

TEST(FaultDomainPreferredGet, NeedsAStretchedCluster) {
  using Command = ClusterPreferredFaultDomainGet;
  const Outcome refused =
      Failed("Cannot get preferred fault domain if host is not in a stretched cluster.");
  const Strings first = kOpen + Strings{"GetClusterConfig()"};
  const Strings both = first + Strings{"IsInStretchedCluster()"};
  Check<Command>(kNotEnabled, {}, first, refused);
  Check<Command>([](RecordingLibrary& library) { library.stretched = false; }, {}, both, refused);
  CheckEachFailure<Command>(
      {}, {}, both + Strings{"GetPreferredFaultDomainInfo()"},
      Failed("Unable to get preferred fault domain name: broken"),
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
  CheckEachFailure<Command>([](RecordingLibrary& library) { library.isWitness = true; },
                            named(Wide(256)),
                            asked + kOpen + Strings{"SetPreferredFaultDomain(" + Wide(256) + ")"},
                            Failed("Unable to set preferred fault domain name: broken"));
}

TEST(FaultDomainMaintenance, CancelNeedsNoLibraryObject) {
  CheckEachFailure<MaintenanceModeCancel>({}, {}, {"DecomCancel()"}, Failed("broken", "false"));
}

}  // namespace
