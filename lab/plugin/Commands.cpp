// The lab's plug-in: the `lab` commands.

#include <algorithm>
#include <map>

#include "corectl/rules/Clusters.h"
#include "corectl/rules/Disks.h"
#include "corectl/rules/Hosts.h"
#include "corectl/rules/Refuse.h"
#include "corectl/session/Operations.h"
#include "hostroot/HostRoot.h"
#include "plugin/LabCommand.h"

namespace Lab {

namespace {

using enum ParameterType;
using enum Need;

template <std::int64_t kMin, std::int64_t kMax>
ConstraintPtr Range() {
  return Between(kMin, kMax);
}

// Hosts.

/// Returns the host that --host selects. Throws `HostError` when the lab has no such host.
HostRow SelectedHost(Store& store) {
  return *store.FindHost(Session::Current().GetName());
}

void AddNamedHost(Store& store, const InputPtr& input, std::string&) {
  const std::string name = input->GetParameter("name");
  if (!IsHostName(name)) {
    Refuse("\"" + name + "\" cannot be a host's name: it has 1 to " + std::to_string(kMaxHostName) +
           " letters, digits, \".\", \"_\" and \"-\", and begins with a letter, a digit or \"_\".");
  }
  if (store.FindHost(name)) Refuse("There is a host \"" + name + "\" already.");
  AddHost(store, name, Selected().hostFiles);
}

constexpr ParameterRow kHostOrSelected = {
    "name",  "n",    kString, kOptional, "Name of the host; default: the host of --host.",
    nullptr, "hosts"};

/// Switches the host that the parameter names, or else --host.
template <auto kSwitch>
void OnPower(Store& store, const InputPtr& input, std::string&) {
  HostRow host = input->HasParameter("name") ? RequireHost(store, input->GetParameter("name"))
                                             : SelectedHost(store);
  kSwitch(store, host);
}

/// Settles the hosts' roots. A failure does not undo the change that was committed.
void SettleHosts(const OutputPtr& output) {
  ChangeLab([&output](Store& store) {
    for (const std::string& failure : SettleRoots(store)) output->AddErrorMessage(failure);
  });
}

StructPtr HostRecord(const HostRow& host, const std::string& cluster,
                     const std::string& membership) {
  return MakeRecord("LabHostList", {{"Name", host.name},
                                    {"UUID", host.uuid},
                                    {"Cluster UUID", cluster},
                                    {"Membership", membership},
                                    {"Fault Domain", host.faultDomain},
                                    {"API Version", host.apiVersion},
                                    {"Network Group", host.networkGroup}});
}

std::vector<StructPtr> ListHosts(Store& store) {
  std::vector<StructPtr> records;
  for (const HostRow& host : store.List<HostRow>()) {
    const auto member = store.Find<MemberRow>(host.id);
    const char* const role = !member ? "" : member->witness ? "witness" : "data";
    const char* const state = !member || member->running ? ""
                              : host.power               ? ", not restored"
                                                         : ", stopped";
    records.push_back(HostRecord(host, member ? RequireCluster(store, member->cluster).uuid : "",
                                 std::string(role) + state));
  }
  return records;
}

// lab status.

/// Returns the host's first problem, the gravest first. Empty when there is none.
const char* ProblemOf(const Member& one, const std::vector<Member>& members,
                      const Partition& partition, const DiskCount& disks) {
  if (!one.host.power) return "stopped";
  if (!members.empty() && !one.row.running) return "not restored";
  if (one.isIsolated) return "no interface";
  if (!members.empty() && !partition.HasQuorum()) {
    const auto all = PartitionsOf(members);
    return std::ranges::any_of(all, &Partition::HasQuorum) ? "cut off" : "no quorum";
  }
  return disks.failed > 0 ? "disk failed" : "";
}

/// Returns the record of a host, given the members of its cluster if it is in one.
StructPtr StatusRecord(const Member& one, const std::vector<Member>& members,
                       const DiskCount& disks) {
  const Partition partition = PartitionOf(members, one);
  const char* const role = members.empty()                           ? ""
                           : one.row.witness                         ? "witness"
                           : one.host.uuid == partition.GetLeader(0) ? "master"
                           : one.host.uuid == partition.GetLeader(1) ? "backup"
                                                                     : "agent";
  const std::string failed =
      disks.failed == 0 ? "" : ", " + std::to_string(disks.failed) + " failed";
  return MakeRecord("LabStatus", {{"Host", one.host.name},
                                  {"Power", one.host.power ? "on" : "off"},
                                  {"Cluster", one.row.cluster},
                                  {"Role", role},
                                  {"Fault Domain", one.host.faultDomain},
                                  {"Partition", static_cast<std::int64_t>(partition.number)},
                                  {"Votes", members.empty() ? "" : partition.GetVotes()},
                                  {"Quorum", partition.HasQuorum()},
                                  {"Disks", std::to_string(disks.ok) + " ok" + failed},
                                  {"Problem", ProblemOf(one, members, partition, disks)}});
}

std::vector<StructPtr> ListStatus(Store& store) {
  std::map<std::string, std::vector<Member>> clusters = {{"", {}}};
  std::vector<StructPtr> records;
  for (const HostRow& host : store.List<HostRow>()) {
    const auto row = store.Find<MemberRow>(host.id).value_or(MemberRow());
    const auto [cluster, isNew] = clusters.try_emplace(row.cluster);
    if (isNew) cluster->second = ListMembers(store, row.cluster);
    records.push_back(StatusRecord({row, host, store.IsIsolated(host.id)}, cluster->second,
                                   store.CountDisks(host.id)));
  }
  return records;
}

// Disks.

constexpr ParameterRow kDevice = {
    "device", "d",    kString, kRequired, "Device name of the disk, e.g. mpx.xhba2:C0:T1:L0.",
    nullptr,  "disks"};

ConstraintPtr DiskKinds() {
  return OneOf({{"flash", "a flash disk"}, {"capacity", "a disk that is not flash"}});
}

/// Lets an event happen to the disk that the parameter names.
template <auto kEvent>
void OnDisk(Store& store, HostRow& host, const InputPtr& input) {
  kEvent(store, host, input->GetParameter("device"));
}

void PlugInNamed(Store& store, HostRow& host, const InputPtr& input) {
  const std::string device = input->GetParameter("device");
  if (device.empty()) Refuse("A disk needs a device name.");
  PlugIn(store, host, device, input->GetParameter("kind") == "flash");
}

StructPtr DiskRecord(const DiskRow& disk) {
  const char* const kind = !disk.flash ? "capacity" : disk.capacityTag ? "capacityFlash" : "flash";
  const char* const use = !disk.IsClaimed() ? "empty" : disk.IsCache() ? "cache" : "capacity";
  const char* const state = disk.unplugged ? "unplugged" : disk.failed ? "failed" : "ok";
  return MakeRecord("LabDiskList", {{"Device", disk.device},
                                    {"Kind", kind},
                                    {"Use", use},
                                    {"Mounted", disk.mounted},
                                    {"State", state},
                                    {"Disk Group", disk.groupName},
                                    {"UUID", disk.uuid}});
}

std::vector<StructPtr> ListDisks(Store& store) {
  std::vector<StructPtr> records;
  for (const DiskRow& disk : store.List<DiskRow>(SelectedHost(store).id)) {
    records.push_back(DiskRecord(disk));
  }
  return records;
}

// Faults.

ConstraintPtr AnyOperation() {
  ConstraintPtr constraint = OneOf({});
  for (const OperationRow& row : kOperations) {
    constraint->AddStringEnum(std::string(row.name), std::string(row.callers));
  }
  return constraint;
}

void AddFault(Store& store, HostRow& host, const InputPtr& input) {
  const std::string message = input->GetParameter("message");
  const bool isBlank = message.find_first_not_of(" \t\r\n") == std::string::npos;
  if (isBlank) Refuse("A fault needs a message.");
  store.Save(FaultRow{.host = host.id,
                      .operation = input->GetParameter("operation"),
                      .message = message,
                      .passes = Given<std::int64_t>(input, "after").value_or(0),
                      .remaining = Given<std::int64_t>(input, "count").value_or(1),
                      .late = input->IsFlagSet("late")});
}

/// Returns the host that --host names, or every host of the lab.
std::vector<HostRow> HostsMeant(Store& store) {
  if (Selected().namesHost) return {SelectedHost(store)};
  return store.List<HostRow>();
}

void ClearFaults(Store& store, const InputPtr& input, std::string&) {
  const auto operation = Given<std::string>(input, "operation");
  const auto message = Given<std::string>(input, "message");
  bool matched = !operation && !message;
  for (const HostRow& host : HostsMeant(store)) {
    for (const FaultRow& fault : store.List<FaultRow>(host.id)) {
      if (operation.value_or(fault.operation) != fault.operation) continue;
      if (message.value_or(fault.message) != fault.message) continue;
      store.Remove<FaultRow>(fault.id);
      matched = true;
    }
  }
  if (matched) return;
  Refuse(
      (Selected().namesHost ? "Host " + Selected().host + " has no fault" : "No host has a fault") +
      (operation ? " on " + *operation : "") +
      (message ? " with the message \"" + *message + "\"" : "") +
      "; \"lab fault list\" shows all faults.");
}

StructPtr FaultRecord(const HostRow& host, const FaultRow& fault) {
  return MakeRecord("LabFaultList", {{"Host", host.name},
                                     {"Operation", fault.operation},
                                     {"Message", fault.message},
                                     {"After", fault.passes},
                                     {"Remaining", fault.remaining},
                                     {"Late", fault.late}});
}

std::vector<StructPtr> ListFaults(Store& store) {
  std::vector<StructPtr> records;
  for (const HostRow& host : HostsMeant(store)) {
    for (const FaultRow& fault : store.List<FaultRow>(host.id)) {
      records.push_back(FaultRecord(host, fault));
    }
  }
  return records;
}

// Other settings of a host.

ConstraintPtr DaemonStates() {
  return OneOf({{"running", ""}, {"stopped", ""}});
}

/// Writes the file in which the stand-in trace daemon keeps its state.
void SetTraced(Store&, HostRow&, const InputPtr& input) {
  const char* const running = input->GetParameter("state") == "running" ? "true" : "false";
  const auto failing = Given<std::int64_t>(input, "fail-restarts").value_or(0);
  ReplaceFile(Session::Current().GetRoot(), kTraceState,
              std::string(R"({"running": )") + running + R"(, "fail_restarts": )" +
                  std::to_string(failing) + "}\n");
}

constexpr CommandRow kRows[] = {
    {"lab", "Commands to make stand-in hosts, and to make them fail"},

    {"lab host", "Commands for the lab's hosts"},
    {"lab host add",
     "Add a host to the lab.",
     "# Add a second host, for --host.\nautocli lab host add --name host2",
     {{"name", "n", kString, kRequired, "Name of the new host."}},
     LabChange{AddNamedHost},
     "Unable to add host: ",
     SettleHosts},
    {"lab host remove",
     "Remove a host and its vote for good, and print how many votes its cluster has left.",
     "# Replace a host that is gone for good.\nautocli lab host remove --name host3",
     {{"name", "n", kString, kRequired, "Name of the host.", nullptr, "hosts"}},
     LabChange{[](Store& store, const InputPtr& input, std::string& remark) {
       remark = RemoveHost(store, RequireHost(store, input->GetParameter("name")));
     }},
     "Unable to remove host: ",
     SettleHosts},
    {"lab host list",
     "List the lab's hosts.",
     "# List the hosts and their roles.\nautocli lab host list\n"
     "# Show the cluster of each host.\nautocli --fields \"Name,Cluster UUID\" lab host list",
     {},
     RecordList{[] { return HostRecord({}, "", ""); }, ListHosts, false,
                "Name,Membership,Fault Domain,UUID"}},
    {"lab host stop",
     "Power a host off, as if it had died. Its configuration stays, and its vote still counts.",
     "# Let a host die.\nautocli lab host stop --name host1",
     {kHostOrSelected},
     LabChange{OnPower<Stop>, true},
     "Unable to stop host: "},
    {"lab host start",
     "Power a host on. Then \"dovra network restore\" and \"dovra cluster restore\" bring back its "
     "interfaces and its membership.",
     "# Start a host that was stopped.\nautocli lab host start --name host1",
     {kHostOrSelected},
     LabChange{OnPower<Start>, true},
     "Unable to start host: "},
    {"lab host reboot",
     "Stop a host and start it again.",
     "# Reboot a host; \"dovra network restore\" and \"dovra cluster restore\" bring it back.\n"
     "autocli lab host reboot --name host1",
     {kHostOrSelected},
     LabChange{OnPower<Reboot>, true},
     "Unable to reboot host: "},

    {"lab disk", "Commands for the disks of a host; --host names the host"},
    {"lab disk add",
     "Plug an empty disk into this host. With auto claim mode on, the Dovra service then claims "
     "empty disks.",
     "# Plug a disk into an empty slot.\n"
     "autocli lab disk add --device mpx.xhba2:C0:T4:L0 --kind capacity",
     {{"device", "d", kString, kRequired, "Device name of the disk, e.g. mpx.xhba2:C0:T4:L0."},
      {"kind", "k", kString, kRequired, "Kind of disk.", DiskKinds}},
     PlugInNamed,
     "Unable to add disk: "},
    {"lab disk fail",
     "Make a disk of this host fail: it stays attached, but cannot be read. With a cache device, "
     "its whole disk group is unmounted.",
     "# Let a disk die.\nautocli lab disk fail --device mpx.xhba2:C0:T1:L0",
     {kDevice},
     OnDisk<Fail>,
     "Unable to fail disk: "},
    {"lab disk unplug",
     "Unplug a disk from this host. The cluster still knows a disk of a disk group, until \"dovra "
     "storage remove\" removes it by its UUID.",
     "# Pull the wrong disk.\nautocli lab disk unplug --device mpx.xhba2:C0:T1:L0",
     {kDevice},
     OnDisk<Unplug>,
     "Unable to unplug disk: "},
    {"lab disk replug",
     "Plug an unplugged disk in again, with its data.",
     "# Put the disk back.\nautocli lab disk replug --device mpx.xhba2:C0:T1:L0",
     {kDevice},
     OnDisk<Replug>,
     "Unable to replug disk: "},
    {"lab disk replace",
     "Put a new, empty disk into the slot of a failed or unplugged one, which must not be in a "
     "disk group any more.",
     "# Put a new disk into the slot of the dead one.\n"
     "autocli lab disk replace --device mpx.xhba2:C0:T1:L0",
     {kDevice},
     OnDisk<Replace>,
     "Unable to replace disk: "},
    {"lab disk generate",
     "Add many disks to this host, claimed in disk groups of one flash disk and up to seven "
     "capacity disks.",
     "# Make this a large host.\nautocli lab disk generate --count 40",
     {{"count", "c", kInt, kRequired, "Number of disks.", Range<1, 1000000>}},
     [](Store& store, HostRow& host, const InputPtr& input) {
       Generate(store, host, input->GetParameterInt("count"));
     },
     "Unable to generate disks: "},
    {"lab disk list",
     "List the disks of this host, claimed or not.",
     "# List the disks, used and empty ones.\nautocli lab disk list",
     {},
     RecordList{[] { return DiskRecord({}); }, ListDisks, true,
                "Device,Kind,Use,Mounted,State,Disk Group"}},

    {"lab network", "Commands for the network between the hosts"},
    {"lab network split",
     "Cut the named hosts off from all others; the named hosts reach each other. A witness that is "
     "not named keeps its link to every partition. Each further split makes another partition.",
     "# Cut two hosts off from all others.\n"
     "autocli lab network split --name host2 --name host3",
     {{"name", "n", kStringList, kRequired, "Name of a host to cut off.", nullptr, "hosts"}},
     LabChange{[](Store& store, const InputPtr& input, std::string&) {
       std::vector<std::string> names;
       input->GetParameterList("name", names);
       SplitNetwork(store, names);
     }},
     "Unable to split the network: "},
    {"lab network heal",
     "End all splits of the network.",
     "# Connect all hosts again.\nautocli lab network heal",
     {},
     LabChange{[](Store& store, const InputPtr&, std::string&) { HealNetwork(store); }},
     "Unable to heal the network: "},

    {"lab fault", "Commands to make the control library fail"},
    {"lab fault add",
     "Make the next calls of a control-library operation on this host fail.",
     "# Let the next leave fail.\n"
     "autocli lab fault add --operation LeaveCluster --message \"The cluster is busy.\"\n"
     "# Let three reads of the configuration fail, on another host.\n"
     "autocli --host host2 lab fault add -o GetClusterConfig -m \"No answer.\" --count 3\n"
     "# Let a listing fail at its third disk.\n"
     "autocli lab fault add -o GetDiskInfo -m \"I/O error.\" --after 2\n"
     "# Lose the answer to a change.\n"
     "autocli lab fault add -o AddDatastore -m \"No answer.\" --late",
     {{"operation", "o", kString, kRequired,
       "Operation that fails, e.g. LeaveCluster. The help of a command names the operations that "
       "it calls.",
       AnyOperation},
      {"message", "m", kString, kRequired, "Error message of the operation."},
      {"count", "c", kInt, kOptional, "Number of calls that fail (default: 1).", Range<1, 1000000>},
      {"after", "k", kInt, kOptional, "Number of calls that pass first (default: 0).",
       Range<0, 1000000>},
      {"late", "", kFlag, kOptional,
       "Apply the operation's change, then fail, as if its answer were lost."}},
     AddFault,
     "Unable to add fault: "},
    {"lab fault list",
     "List the pending faults of every host, or of the host that --host names.",
     "# Show what is still to fail.\nautocli lab fault list",
     {},
     RecordList{[] { return FaultRecord({}, {}); }, ListFaults, true}},
    {"lab fault clear",
     "Remove the faults of every host, or of the host that --host names.",
     "# Remove all faults.\nautocli lab fault clear\n"
     "# Remove one of two faults on an operation of a host.\n"
     "autocli --host host2 lab fault clear -o GetClusterConfig -m \"No answer.\"",
     {{"operation", "o", kString, kOptional, "Remove only faults on this operation.", AnyOperation},
      {"message", "m", kString, kOptional, "Remove only faults with this message.", nullptr,
       "fault-messages"}},
     LabChange{ClearFaults, true},
     "Unable to clear faults: "},

    {"lab api", "Commands for a host's control library"},
    {"lab api set",
     "Set the version of this host's control library.",
     "# Make the control library of this host too old.\nautocli lab api set --version 1",
     {{"version", "v", kInt, kRequired, "Version. Version 1 lacks the newer network operations.",
       Range<1, 2>}},
     [](Store& store, HostRow& host, const InputPtr& input) {
       host.apiVersion = input->GetParameterInt("version");
       store.Save(host);
     },
     "Unable to set the API version: "},

    {"lab maintenance", "Commands for a host's maintenance mode"},
    {"lab maintenance start",
     "Begin to enter maintenance mode on this host; \"dovra maintenancemode cancel\" cancels it.",
     "# Begin to enter maintenance mode.\nautocli lab maintenance start",
     {},
     [](Store& store, HostRow& host, const InputPtr&) { StartMaintenance(store, host); },
     "Unable to start maintenance: "},

    {"lab resync", "Commands for a host's resynchronisation"},
    {"lab resync set",
     "Set the bandwidth that resync would take on this host without a throttle.",
     "# Let the host have much to resynchronise.\nautocli lab resync set --demand 800",
     {{"demand", "d", kInt, kRequired, "Bandwidth in Mbps.", Range<0, 1000000>}},
     [](Store& store, HostRow& host, const InputPtr& input) {
       host.resyncDemand = input->GetParameterInt("demand");
       store.Save(host);
     },
     "Unable to set resync: "},

    {"lab traced", "Commands for a host's trace daemon"},
    {"lab traced set",
     "Start or stop this host's trace daemon, or make its next restarts fail.",
     "# Let the daemon start at the third attempt.\n"
     "autocli lab traced set --state running --fail-restarts 2",
     {{"state", "s", kString, kRequired, "State of the daemon.", DaemonStates},
      {"fail-restarts", "f", kInt, kOptional, "Number of restarts that fail next (default: 0).",
       Range<0, 1000>}},
     SetTraced,
     "Unable to set the trace daemon: "},

    {"lab status",
     "Show every host's role, partition, votes, disks and first problem. Partition 0: none, since "
     "the host does not run as a member. Problems: stopped, not restored, no interface, cut off "
     "(another partition has the quorum), no quorum, disk failed.",
     "# See why a host is not in its cluster.\nautocli lab status",
     {},
     RecordList{[] { return StatusRecord({}, {}, {}); }, ListStatus, false,
                "Host,Role,Fault Domain,Partition,Votes,Disks,Problem"}},
    {"lab reset",
     "Reset the lab to its initial state: every host and cluster is lost.",
     "# Start again with a new lab.\nautocli lab reset --force",
     {{"force", "", kFlag, kOptional,
       "Do not ask; required when standard input is not a terminal."}},
     LabChange{[](Store& store, const InputPtr&, std::string&) {
       ResetLab(store, Selected().hostFiles);
     }},
     "Unable to reset the lab: ",
     SettleHosts,
     "Every host and cluster of the lab will be lost."},
};

}  // namespace

}  // namespace Lab

extern "C" void AutoCli_RegisterNamespaces(
    const std::shared_ptr<CliTools::AutoCli::Namespace>& root) {
  Lab::Register(Lab::kRows, *root);
}
