// The lab's plug-in: the `lab` commands.

#include "corectl/rules/Clusters.h"
#include "corectl/rules/Disks.h"
#include "corectl/rules/Hosts.h"
#include "corectl/rules/Refuse.h"
#include "corectl/rules/Splits.h"
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

/// The host that autocli's --host selects. Throws `LabError` when the lab has no such host.
HostRow SelectedHost(Store& store) {
  return *store.FindHost(LabHost::Current().GetName());
}

void AddNamedHost(Store& store, const InputPtr& input) {
  const std::string name = input->GetParameter("name");
  if (!IsHostName(name)) {
    Refuse("\"" + name + "\" cannot be a host's name: it has 1 to " + std::to_string(kMaxHostName) +
           " letters, digits, \".\", \"_\" and \"-\", and begins with a letter, a digit or \"_\".");
  }
  if (store.FindHost(name)) Refuse("There is a host \"" + name + "\" already.");
  AddHost(store, name, Selected().hostFiles);
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
    const char* const state = member && !member->running ? ", not restored" : "";
    records.push_back(HostRecord(host, member ? RequireCluster(store, member->cluster).uuid : "",
                                 std::string(role) + state));
  }
  return records;
}

// Disks.

constexpr ParameterRow kDevice = {"device", "d", kString, kRequired,
                                  "Device name of the disk, e.g. mpx.xhba2:C0:T1:L0."};

ConstraintPtr DiskKinds() {
  return OneOf({{"flash", "a flash device"}, {"capacity", "a disk that is not flash"}});
}

/// Calls an event of a disk on the one that is named.
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
  store.Save(FaultRow{0, host.id, input->GetParameter("operation"), message,
                      Given<std::int64_t>(input, "after").value_or(0),
                      Given<std::int64_t>(input, "count").value_or(1)});
}

/// The host that autocli's --host names, or every host of the lab.
std::vector<HostRow> HostsMeant(Store& store) {
  if (Selected().namesHost) return {SelectedHost(store)};
  return store.List<HostRow>();
}

void ClearFaults(Store& store, const InputPtr& input) {
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
                                     {"Remaining", fault.remaining}});
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

// What else makes a host behave as a rehearsal wants it.

ConstraintPtr DaemonStates() {
  return OneOf({{"running", ""}, {"stopped", ""}});
}

/// Writes the file in which the stand-in trace daemon keeps its state.
void SetTraced(Store&, HostRow&, const InputPtr& input) {
  const char* const running = input->GetParameter("state") == "running" ? "true" : "false";
  const auto failing = Given<std::int64_t>(input, "fail-restarts").value_or(0);
  ReplaceFile(LabHost::Current().GetRoot(), kTraceState,
              std::string(R"({"running": )") + running + R"(, "fail_restarts": )" +
                  std::to_string(failing) + "}\n");
}

constexpr CommandRow kRows[] = {
    {"lab", "Commands to rehearse with stand-in hosts"},
    {"lab host", "Commands for the lab's hosts"},
    {.path = "lab host add",
     .description = "Add a host to the lab.",
     .scope = "lab",
     .parameters = {{"name", "n", kString, kRequired,
                     "Name of the new host, for autocli's --host."}},
     .failure = "Unable to add host: ",
     .onLab = AddNamedHost,
     .afterCommit = SettleHosts},
    {.path = "lab host remove",
     .description = "Remove a host from the lab, and from its cluster as if it had died.",
     .scope = "lab",
     .parameters = {{"name", "n", kString, kRequired, "Name of the host."}},
     .failure = "Unable to remove host: ",
     .onLab =
         [](Store& store, const InputPtr& input) {
           RemoveHost(store, RequireHost(store, input->GetParameter("name")));
         },
     .afterCommit = SettleHosts},
    {.path = "lab host list",
     .description = "List the lab's hosts.",
     .scope = "lab",
     .sample = [] { return HostRecord({}, "", ""); },
     .list = ListHosts},
    {.path = "lab host reboot",
     .description = "Reboot a host: what runs on it is lost, what it has persisted is kept for the "
                    "restore commands.",
     .parameters = {{"name", "n", kString, kOptional,
                     "Name of the host; the one that autocli's --host selects if not given."}},
     .failure = "Unable to reboot host: ",
     .onLab =
         [](Store& store, const InputPtr& input) {
           HostRow host = input->HasParameter("name")
                              ? RequireHost(store, input->GetParameter("name"))
                              : SelectedHost(store);
           Reboot(store, host);
         }},

    {"lab disk", "Commands for a host's disks"},
    {.path = "lab disk add",
     .description = "Plug an empty disk into this host. With auto claim mode on, the Dovra service "
                    "then claims every empty disk.",
     .parameters = {{"device", "d", kString, kRequired,
                     "Device name of the disk, e.g. mpx.xhba2:C0:T4:L0."},
                    {"kind", "k", kString, kRequired, "Kind of disk, one of %ENUM%.", DiskKinds}},
     .failure = "Unable to add disk: ",
     .onHost = PlugInNamed},
    {.path = "lab disk fail",
     .description =
         "Let a disk of this host fail: it is seen but cannot be read. A flash disk that "
         "fronts a disk group takes the whole group out of use.",
     .parameters = {kDevice},
     .failure = "Unable to fail disk: ",
     .onHost = OnDisk<Fail>},
    {.path = "lab disk unplug",
     .description = "Unplug a disk from this host. The cluster still knows it, until it is removed "
                    "by its UUID.",
     .parameters = {kDevice},
     .failure = "Unable to unplug disk: ",
     .onHost = OnDisk<Unplug>},
    {.path = "lab disk replug",
     .description = "Plug in again what was unplugged, with all that is on it.",
     .parameters = {kDevice},
     .failure = "Unable to replug disk: ",
     .onHost = OnDisk<Replug>},
    {.path = "lab disk replace",
     .description = "Put a new, empty disk in the place of one that failed or was unplugged, and "
                    "that no disk group knows any more.",
     .parameters = {kDevice},
     .failure = "Unable to replace disk: ",
     .onHost = OnDisk<Replace>},
    {.path = "lab disk generate",
     .description = "Add many disks to this host, claimed in disk groups: a flash disk and up to "
                    "seven capacity disks behind it, then the next flash disk.",
     .parameters = {{"count", "c", kInt, kRequired, "Number of disks (%ENUM%).",
                     Range<1, 1000000>}},
     .failure = "Unable to generate disks: ",
     .onHost =
         [](Store& store, HostRow& host, const InputPtr& input) {
           Generate(store, host, input->GetParameterInt("count"));
         }},
    {.path = "lab disk list",
     .description = "List this host's disks, claimed or not.",
     .sample = [] { return DiskRecord({}); },
     .list = ListDisks},

    {"lab network", "Commands for the network between the hosts"},
    {.path = "lab network split",
     .description = "Split the network: the named hosts reach each other and nobody else, the "
                    "others stay together. Split again, and there are more parts.",
     .scope = "lab",
     .parameters = {{"name", "n", kStringList, kRequired,
                     "Name of a host that is cut off with the others named."}},
     .failure = "Unable to split the network: ",
     .onLab =
         [](Store& store, const InputPtr& input) {
           std::vector<std::string> names;
           input->GetParameterList("name", names);
           SplitNetwork(store, names);
         }},
    {.path = "lab network heal",
     .description = "End every split of the network: all hosts reach each other again.",
     .scope = "lab",
     .failure = "Unable to heal the network: ",
     .onLab = [](Store& store, const InputPtr&) { HealNetwork(store); }},

    {"lab fault", "Commands to make the control library fail"},
    {.path = "lab fault add",
     .description = "Make the next calls of a control-library operation on this host fail.",
     .parameters =
         {{"operation", "o", kString, kRequired,
           "The operation that is to fail, e.g. LeaveCluster. The help of each command names "
           "those that it calls, and the shell completes them.",
           AnyOperation},
          {"message", "m", kString, kRequired, "What the operation says when it fails."},
          {"count", "c", kInt, kOptional, "How many calls fail (%ENUM%, 1 if not given).",
           Range<1, 1000000>},
          {"after", "k", kInt, kOptional, "How many calls pass first (%ENUM%, none if not given).",
           Range<0, 1000000>}},
     .failure = "Unable to add fault: ",
     .onHost = AddFault},
    {.path = "lab fault list",
     .description = "List the faults that wait for their calls, on every host of the lab, or with "
                    "autocli's --host on one host.",
     .sample = [] { return FaultRecord({}, {}); },
     .list = ListFaults},
    {.path = "lab fault clear",
     .description =
         "Take back faults: every one on every host of the lab, or with autocli's --host "
         "those of one host.",
     .parameters = {{"operation", "o", kString, kOptional, "Only those on this operation.",
                     AnyOperation},
                    {"message", "m", kString, kOptional,
                     "Only those that say this, as \"lab fault list\" shows it."}},
     .failure = "Unable to clear faults: ",
     .onLab = ClearFaults},

    {"lab api", "Commands for a host's control library"},
    {.path = "lab api set",
     .description = "Set the version of this host's control library.",
     .parameters = {{"version", "v", kInt, kRequired,
                     "Version (%ENUM%). Version 1 lacks the newer network operations.",
                     Range<1, 2>}},
     .failure = "Unable to set the API version: ",
     .onHost =
         [](Store& store, HostRow& host, const InputPtr& input) {
           host.apiVersion = input->GetParameterInt("version");
           store.Save(host);
         }},
    {"lab maintenance", "Commands for a host's maintenance mode"},
    {.path = "lab maintenance start",
     .description = "Let this host begin to enter maintenance mode; \"dovra maintenancemode "
                    "cancel\" ends it.",
     .failure = "Unable to start maintenance: ",
     .onHost = [](Store& store, HostRow& host, const InputPtr&) { StartMaintenance(store, host); }},
    {"lab resync", "Commands for a host's resynchronisation"},
    {.path = "lab resync set",
     .description = "Set how much this host resynchronises; the throttle limits it.",
     .parameters = {{"demand", "d", kInt, kRequired,
                     "What resync would use unthrottled, in Mbps (%ENUM%).", Range<0, 1000000>}},
     .failure = "Unable to set resync: ",
     .onHost =
         [](Store& store, HostRow& host, const InputPtr& input) {
           host.resyncDemand = input->GetParameterInt("demand");
           store.Save(host);
         }},
    {"lab traced", "Commands for a host's trace daemon"},
    {.path = "lab traced set",
     .description = "Set how this host's trace daemon behaves.",
     .parameters = {{"state", "s", kString, kRequired, "State of the daemon, one of %ENUM%.",
                     DaemonStates},
                    {"fail-restarts", "f", kInt, kOptional,
                     "How many of the next restarts fail (%ENUM%, none if not given).",
                     Range<0, 1000>}},
     .failure = "Unable to set the trace daemon: ",
     .onHost = SetTraced},
    {.path = "lab reset",
     .description = "Make the lab as it was when new: every host and cluster is lost.",
     .scope = "lab",
     .parameters = {{"force", "", kFlag, kOptional,
                     "Do it without a question; needed where nobody can be asked."}},
     .failure = "Unable to reset the lab: ",
     .question = "Every host and cluster of the lab will be lost.",
     .onLab = [](Store& store, const InputPtr&) { ResetLab(store, Selected().hostFiles); },
     .afterCommit = SettleHosts},
};

}  // namespace

}  // namespace Lab

extern "C" void AutoCli_RegisterNamespaces(
    const std::shared_ptr<CliTools::AutoCli::Namespace>& root) {
  Lab::Register(Lab::kRows, *root);
}
