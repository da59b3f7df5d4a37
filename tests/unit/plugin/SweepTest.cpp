// Fails each call of every command in turn.

#include <gmock/gmock.h>

#include <map>
#include <set>
#include <span>

#include "RecordingLibrary.h"
#include "clitools/Nodes.h"
#include "corectl/session/Operations.h"

namespace Testing {

namespace {

/// What commands leave when a call fails with the message "broken", as regular expressions.
struct Row {
  Strings lines;  ///< with the states below, they make every sequence of calls
  std::string message = "broken";
  std::string root = "none";
  // The result when this call fails, or one after it.
  std::string laterCall = {};
  std::string laterRoot = {};
};

const std::string kEmptyFields = "(, [^:,]+: (|0|false))+";

const std::vector<Row> kRows = {
    {{"policy getdefault", "policy getdefault -c vmem", "network ip add -i one",
      "network ip set -i one", "network ipv4 add -i one", "network ipv4 set -i one",
      "cluster leave", "cluster unicastagent add -a ::1",
      "cluster unicastagent add -a ::1 -t node -u one -U 1", "resync throttle set --level 1",
      "resync throttle get", "resync bandwidth get"}},
    {{"policy setdefault -c vmem -p one", "policy cleardefault", "network remove -i one",
      "network ip remove -i one", "network ipv4 remove -i one", "network restore", "network clear",
      "cluster join -u 52000000-0000-0000-0000-000000000001", "cluster restore",
      "maintenancemode cancel"},
     "broken",
     "false"},
    {{"cluster new"}, "Unable to create the new Dovra cluster: broken", "false"},
    {{"cluster get"},
     "broken",
     "Enabled: false" + kEmptyFields,
     "GetFormattedSystemDateTime(",
     "Enabled: true" + kEmptyFields},
    {{"cluster unicastagent remove -a ::1"}, "Unable to remove the unicast agent: broken"},
    {{"cluster unicastagent list"}, "Unable to list unicast agent: broken", ""},
    {{"cluster unicastagent clear"}, "Unable to remove unicast agents: broken"},
    {{"cluster preferredfaultdomain get"}, "Unable to get preferred fault domain name: broken"},
    {{"cluster preferredfaultdomain set -n one"},
     "Unable to set preferred fault domain name: broken"},
    {{"faultdomain set -n one", "faultdomain set -n ''"},
     "Unable to set fault domain name: broken",
     "true"},
    {{"faultdomain get"}, "Unable to get fault domain name: broken"},
    {{"faultdomain reset"}, "Unable to reset fault domain name", "true"},
    {{"datastore name get"}, "Unable to get Dovra datastore name: broken"},
    {{"datastore name set -n one"}, "Unable to set Dovra datastore name: broken"},
    {{"datastore add -n one", "datastore list"}, "Unable to add datastore: broken"},
    {{"datastore remove -u one"}, "Unable to remove datastore: broken"},
    {{"datastore clear"}, "Unable to clear datastore: broken"},
    {{"network list"}, "broken", ""},
    {{"storage add -s one -d one"}, "Unable to add device: broken"},
    {{"storage remove -s one", "storage remove -d one", "storage remove -u one"},
     "Unable to remove device: broken"},
    {{"storage list"},
     "Unable to list devices: broken",
     "",
     "GetDiskInfo(5202",
     "Device: one, .+Is Mounted: false"},
    {{"storage automode get"}, "Unable to get Dovra storage auto claim mode: broken"},
    {{"storage automode set --enabled 1"}, "Unable to set storage auto claim mode: broken"},
    {{"storage diskgroup mount -s s", "storage diskgroup mount -d d",
      "storage diskgroup mount -u u"},
     "Unable to mount: broken"},
    {{"storage diskgroup unmount -s s", "storage diskgroup unmount -d d",
      "storage diskgroup unmount -u u"},
     "Unable to unmount: broken"},
    {{"storage tag add -t capacityFlash -d one"}, "Unable to add tag to disk: broken"},
    {{"storage tag remove -t capacityFlash -d one"}, "Unable to remove tag for disk: broken"},
    {{"trace set -f 1"}, "broken Refer /var/log/syslog.log for details."},
    {{"trace get"}, "brokenRefer to /var/log/syslog.log for details."},
};

/// A library with entries of each kind, in one of the eight states that commands distinguish.
struct FullLibrary : RecordingLibrary {
  explicit FullLibrary(unsigned state) {
    using namespace HostCtl::Dovra;
    const DovraIpAddress v4(HostCtl::Network::Ipv4Address("224.0.0.1"));
    const DovraIpAddress v6(HostCtl::Network::Ipv6Address("ff02::1"));
    config.enabled = (state & 1) != 0;
    isWitness = (state & 2) != 0;
    if ((state & 4) != 0) trafficInUse = {"dovra"};
    knics = {std::make_shared<DovraKnicConfig2>("one", v4, v6, v4, v6, 1, 2, 3, 4, true, true, "")};
    unicastAgents = {"a;0;1;10.0.0.1;1;", "b;0;1;10.0.0.2;1;"};
    removeUnicastAgentResults = {false};
    datastores = {std::make_shared<DovraDatastore>("uuid", "one", true)};
    serviceDisks = {{{0x52, 1}}, {{0x52, 2}}};
    for (const auto& uuid : serviceDisks) diskInfos[uuid].deviceName = "one";
  }
};

/// Fails each call of the line in turn, and adds the operations called to `operations`.
void CheckBroken(const std::string& line, const Row& row, unsigned state,
                 std::set<std::string>& operations) {
  using HostCtl::Lib::Dovra::DovraCtlException;
  bool isLater = false;
  for (std::size_t position = 0;; ++position) {
    FullLibrary library(state);
    library.exceptions[position] = std::make_exception_ptr(DovraCtlException("broken"));
    const Outcome outcome = Execute(line);
    if (library.calls.size() <= position) return;
    const std::string call = library.calls[position];
    SCOPED_TRACE(call);
    isLater = isLater || (!row.laterCall.empty() && call.starts_with(row.laterCall));
    EXPECT_THAT(outcome,
                testing::MatchesRegex(Failed(row.message, isLater ? row.laterRoot : row.root)));
    // Only the shell's commands may follow a failure.
    for (const std::string& next : std::span(library.calls).subspan(position + 1)) {
      EXPECT_THAT(next, testing::StartsWith("AutoCli_ShellCmd("));
    }
    if (!call.starts_with("AutoCli_ShellCmd(")) operations.insert(call.substr(0, call.find('(')));

    // Any other exception is the framework's to handle.
    library.calls.clear();
    library.exceptions[position] = std::make_exception_ptr(std::runtime_error("another"));
    EXPECT_THROW(Execute(line), std::runtime_error);
    EXPECT_EQ(library.calls.size(), position + 1);
  }
}

TEST(Sweep, EveryCommandStandsEveryFailure) {
  traceConfiguration = "/dev/null";
  std::map<std::string, std::set<std::string>> operations;  // by the command's path
  for (const Row& row : kRows) {
    for (const std::string& line : row.lines) {
      SCOPED_TRACE(line);
      auto& called = operations[CliTools::PathOf(Find(line).first)];
      for (unsigned state = 0; state < 8; ++state) CheckBroken(line, row, state, called);
    }
  }
  const auto root = Registered();
  for (const auto& command : CliTools::CommandsBelow(*root)) {
    const std::string path = CliTools::PathOf(*command);
    std::set<std::string> listed;
    for (const Lab::OperationRow& operation : Lab::kOperations) {
      if (operation.IsCalledBy(path.substr(std::size("dovra")))) listed.emplace(operation.name);
    }
    EXPECT_EQ(operations[path], listed) << path;
  }
}

}  // namespace

}  // namespace Testing
