// Every command of the tree, with every call that it makes of the control library failing in turn.

#include <gmock/gmock.h>

#include <algorithm>
#include <regex>
#include <set>

#include "Run.h"
#include "corectl/session/Operations.h"

namespace Testing {

namespace {

using CliTools::AutoCli::Command;
using namespace CliTools::CallSpec;
using Strings = std::vector<std::string>;

const std::string kUuid1 = "52000000-0000-0000-0000-000000000001";
const std::string kUuid2 = "52000000-0000-0000-0000-000000000002";

/// What a command leaves when a call fails with the text "broken". Results are regular expressions.
struct Failure {
  std::string message = "broken";
  std::string root = "none";
  /// From this call on the command leaves more; empty if it makes no difference.
  std::string laterCall = {};
  std::string laterRoot = {};
  /// What it says when there is no information object.
  std::string noInfo = "The control library gave no information object.";
};

const Failure kNetworkFailure = {.message = "broken",
                                 .noInfo = "Could not get DovraInfo2. Plugin version mismatch?"};

const std::string kNoFields = "(, [^:,]+: (|0|false|\\[\\]))+\\}";  // all that follow are empty

/// What a command leaves that is not named here.
const Failure kFailure = {.root = "false"};

const std::map<std::string, Failure> kFailures = {
    {"policy getdefault", {"broken"}},
    {"datastore name get", {"Unable to get Dovra datastore name: broken"}},
    {"datastore name set", {"Unable to set Dovra datastore name: broken"}},
    {"datastore add", {"Unable to add datastore: broken"}},
    {"datastore remove", {"Unable to remove datastore: broken"}},
    {"datastore list", {"Unable to add datastore: broken"}},
    {"datastore clear", {"Unable to clear datastore: broken"}},
    {"storage add", {"Unable to add device: broken"}},
    {"storage remove", {"Unable to remove device: broken"}},
    {"storage list",
     {"Unable to list devices: broken", "\\[\\]", "GetDiskInfo(" + kUuid2,
      "\\[\\{Device: one, [^{]+\\}\\]"}},
    {"storage automode get", {"Unable to get Dovra storage auto claim mode: broken"}},
    {"storage automode set", {"Unable to set storage auto claim mode: broken"}},
    {"storage diskgroup mount", {"Unable to mount: broken"}},
    {"storage diskgroup unmount", {"Unable to unmount: broken"}},
    {"storage tag add", {"Unable to add tag to disk: broken"}},
    {"storage tag remove", {"Unable to remove tag for disk: broken"}},
    {"network list", {.message = "broken", .root = "\\[\\]", .noInfo = kNetworkFailure.noInfo}},
    {"network ip add", kNetworkFailure},
    {"network ip set", kNetworkFailure},
    {"network ipv4 add", kNetworkFailure},
    {"network ipv4 set", kNetworkFailure},
    {"cluster leave", {"broken"}},
    {"cluster get",
     {"broken", "\\{Enabled: false" + kNoFields, "GetFormattedSystemDateTime(",
      "\\{Enabled: true" + kNoFields}},
    {"cluster new", {"Unable to create the new Dovra cluster: broken", "false"}},
    {"cluster unicastagent add", {"broken"}},
    {"cluster unicastagent remove", {"Unable to remove the unicast agent: broken"}},
    {"cluster unicastagent list", {"Unable to list unicast agent: broken", "\\[\\]"}},
    {"cluster unicastagent clear", {"Unable to remove unicast agents: broken"}},
    {"cluster preferredfaultdomain get", {"Unable to get preferred fault domain name: broken"}},
    {"cluster preferredfaultdomain set", {"Unable to set preferred fault domain name: broken"}},
    {"trace set", {"broken Refer /var/log/syslog.log for details."}},
    {"trace get", {"brokenRefer to /var/log/syslog.log for details."}},
    {"faultdomain set", {"Unable to set fault domain name: broken", "true"}},
    {"faultdomain get", {"Unable to get fault domain name: broken"}},
    {"faultdomain reset", {"Unable to reset fault domain name", "true"}},
    {"resync throttle set", {"broken"}},
    {"resync throttle get", {"broken"}},
    {"resync bandwidth get", {"broken"}},
};

Input::Value PlausibleValue(const ParameterSpec& parameter) {
  const auto& constraint = parameter.GetConstraint();
  const auto names = [&parameter](const char* word) {
    return parameter.GetName().find(word) != std::string::npos;
  };
  switch (parameter.GetType()) {
    case ParameterType::kInt:
      return constraint ? constraint->GetIntMin() : 1;
    case ParameterType::kStringList:
      return Strings{"dovra"};
    case ParameterType::kString:
      if (constraint) return constraint->GetStringEnums().back().first;
      if (names("addr")) return names("v6") ? "ff02::1" : "224.0.0.1";
      if (names("mode")) return "noAction";
      return names("uuid") ? kUuid1 : "one";
    default:
      return true;
  }
}

/// With what is required, with each other parameter beside that, with all; and with empty texts.
std::vector<Given> PlausibleCalls(const InputSpec& spec) {
  Given required, all, blank;
  for (const auto& parameter : spec.GetParameters()) {
    all.emplace_back(parameter->GetName(), PlausibleValue(*parameter));
    if (!parameter->IsRequired()) continue;
    required.push_back(all.back());
    blank.push_back(all.back());
    if (parameter->GetType() == ParameterType::kString) blank.back().second = "";
  }
  std::vector<Given> calls = {required, all, blank};
  for (const auto& one : all) {
    calls.push_back(required);
    calls.back().push_back(one);
  }
  return calls;
}

constexpr unsigned kStates = 8;

/// A library that has something of everything, in one of the states that commands tell apart.
struct FullLibrary : RecordingLibrary {
  explicit FullLibrary(unsigned state) {
    using namespace HostCtl::Dovra;
    const DovraIpAddress v4(HostCtl::Network::Ipv4Address("224.0.0.1"));
    const DovraIpAddress v6(HostCtl::Network::Ipv6Address("ff02::1"));
    config.enabled = (state & 1) != 0;
    isWitness = (state & 2) != 0;
    knicInUseForDovra = (state & 4) != 0;
    knics = {DovraKnicConfig2("one", v4, v6, v4, v6, 1, 2, 3, 4, true, true, "")};
    unicastAgents = {kUuid1 + ";0;1;10.0.0.1;1;", kUuid2 + ";0;1;10.0.0.2;1;"};
    removeUnicastAgentResult = false;
    datastores = {{kUuid1, "one", true}};
    luns = {{"one", kUuid1}};
    serviceDisks = {kUuid2};
    for (const auto& uuid : {kUuid1, kUuid2}) diskInfos[uuid].deviceName = "one";
  }
};

/// The operations without their arguments, which may be random, and without the shell's commands,
/// one of which may follow a failure.
Strings Names(const Strings& calls) {
  Strings names;
  for (const auto& call : calls) names.push_back(call.substr(0, call.find('(')));
  std::erase(names, "AutoCli_ShellCmd");
  return names;
}

/// Makes the call, each of whose `calls` fails in turn.
void CheckBroken(Command& command, const Given& given, unsigned state, const Strings& calls,
                 const Failure& failure) {
  for (std::size_t place = 0; place < calls.size(); ++place) {
    SCOPED_TRACE(calls[place]);
    const Strings names = Names({calls.begin(), calls.begin() + static_cast<long>(place) + 1});
    FullLibrary library(state);
    using HostCtl::Lib::Dovra::DovraCtlException;
    library.exceptions[place] = std::make_exception_ptr(DovraCtlException("broken"));
    const Outcome outcome = Run(command, given);
    EXPECT_EQ(outcome.errors, Strings{failure.message});
    const bool isLater = !failure.laterCall.empty() && calls[place].starts_with(failure.laterCall);
    EXPECT_THAT(outcome.root, testing::MatchesRegex(isLater ? failure.laterRoot : failure.root));
    EXPECT_EQ(Names(library.calls), names);

    // Any other exception is the framework's to handle.
    library.calls.clear();
    library.exceptions[place] = std::make_exception_ptr(std::runtime_error("another"));
    EXPECT_THROW(Run(command, given), std::runtime_error);
    EXPECT_EQ(Names(library.calls), names);
  }
}

/// Makes the call of a library that hands out no information object.
void CheckWithoutInfo(Command& command, const Given& given, unsigned state,
                      const Failure& failure) {
  SCOPED_TRACE("without an information object");
  FullLibrary library(state);
  library.hasInfo = false;
  const Outcome outcome = Run(command, given);
  const std::regex broken("broken");
  EXPECT_EQ(outcome.errors, Strings{std::regex_replace(failure.message, broken, failure.noInfo)});
  EXPECT_THAT(outcome.root, testing::MatchesRegex(failure.root));
  EXPECT_EQ(library.calls.back(), "GetDovraInfo()");
}

/// Breaks every call in turn, in every different sequence of calls that the command can be brought
/// to make. Returns the operations that it called.
std::set<std::string> Sweep(Command& command, const Failure& failure) {
  std::set<Strings> sequences;
  std::set<std::string> operations;
  for (const Given& given : PlausibleCalls(*command.GetInputSpec())) {
    for (unsigned state = 0; state < kStates; ++state) {
      const Strings calls = [&] {
        FullLibrary library(state);
        Run(command, given);
        return library.calls;
      }();
      const Strings names = Names(calls);
      operations.insert(names.begin(), names.end());
      if (!sequences.insert(names).second) continue;
      const auto info = std::ranges::find(names, "GetDovraInfo");
      if (info != names.end() && info != names.end() - 1) {  // it is asked for something, too
        CheckWithoutInfo(command, given, state, failure);
      }
      CheckBroken(command, given, state, calls, failure);
    }
  }
  return operations;
}

TEST(Sweep, EveryCommandStandsEveryFailure) {
  traceConfiguration = "/dev/null";
  std::set<std::string> operations;
  for (const auto& [path, node] : Below(*Registered()->GetNamespaceNode("dovra"))) {
    const auto command = std::dynamic_pointer_cast<Command>(node);
    if (!command) continue;
    SCOPED_TRACE(path);
    const auto known = kFailures.find(path);
    const auto called = Sweep(*command, known == kFailures.end() ? kFailure : known->second);
    EXPECT_FALSE(called.empty()) << "no call was found that reaches the control library";
    for (const Lab::OperationRow& row : Lab::kOperations) {
      EXPECT_EQ(row.IsCalledBy(path), called.contains(std::string(row.name))) << row.name;
    }
    operations.insert(called.begin(), called.end());
  }
  for (const std::string& operation : operations) {
    EXPECT_NE(std::ranges::find(Lab::kOperations, operation, &Lab::OperationRow::name),
              std::end(Lab::kOperations))
        << operation;
  }
}

}  // namespace

}  // namespace Testing
