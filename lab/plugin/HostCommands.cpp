// `lab host` and `lab reset`.

#include "corectl/Hosts.h"
#include "corectl/LabHost.h"
#include "hostroot/HostRoot.h"
#include "plugin/LabCommands.h"

namespace Lab {

namespace {

constexpr Field kFields[] = {
    {"Name", MetaType::kString},         {"UUID", MetaType::kString},
    {"Cluster UUID", MetaType::kString}, {"Membership", MetaType::kString},
    {"Fault Domain", MetaType::kString}, {"API Version", MetaType::kInt},
};

void RequireHostName(const std::string& name) {
  if (IsHostName(name)) return;
  Refuse("\"" + name + "\" cannot be a host's name: it has 1 to " + std::to_string(kMaxHostName) +
         " letters, digits, \".\", \"_\" and \"-\", and begins with a letter, a digit or \"_\".");
}

HostRow RequireHost(Store& store, const std::string& name) {
  auto host = store.FindHost(name);
  if (!host) Refuse(UnknownHostMessage(store, name));
  return *host;
}

/// Runs `work` on the lab as a whole, as one transaction.
template <class Work>
void ChangeLab(Work&& work) {
  Store& store = OpenStore();
  Store::Transaction transaction(store, Store::Transaction::Kind::kWrite);
  work(store);
  transaction.Commit();
}

}  // namespace

HostAdd::HostAdd() {
  DescribeOperation("Add a host to the lab.");
}

InputSpecPtr HostAdd::GetInputSpecInternal() {
  return MakeInputSpec({{"name", "n", ParameterType::kString, Need::kRequired,
                         "Name of the new host, for autocli's --host."}});
}

void HostAdd::ExecuteInternal(const InputPtr& input, const OutputPtr& output) {
  SucceedOrNothing(output, "Unable to add host: ", [&] {
    const std::string name = input->GetParameter("name");
    RequireHostName(name);
    ChangeLab([&](Store& store) {
      if (store.FindHost(name)) Refuse("There is a host \"" + name + "\" already.");
      AddHost(store, name);
    });
    ChangeLab(SettleRoots);
  });
}

HostRemove::HostRemove() {
  DescribeOperation("Remove a host from the lab, and from its cluster as if it had died.");
}

InputSpecPtr HostRemove::GetInputSpecInternal() {
  return MakeInputSpec(
      {{"name", "n", ParameterType::kString, Need::kRequired, "Name of the host."}});
}

void HostRemove::ExecuteInternal(const InputPtr& input, const OutputPtr& output) {
  SucceedOrNothing(output, "Unable to remove host: ", [&] {
    const std::string name = input->GetParameter("name");
    ChangeLab([&](Store& store) { RemoveHost(store, RequireHost(store, name)); });
    ChangeLab(SettleRoots);  // only now: until then it could still have been undone
  });
}

const Record HostList::kRecord = {"LabHostList", kFields};

HostList::HostList() {
  DescribeFetcher("List the lab's hosts.");
  SetDefaultOutputFormatter("table");
  SetDefaultOutputParameter("fields:LabHostList", FieldNames(kRecord));
}

void HostList::ExecuteInternal(const InputPtr&, const OutputPtr& output) {
  const ListPtr list = MakeList();
  Store& store = OpenStore();
  Store::Transaction transaction(store, Store::Transaction::Kind::kRead);
  for (const HostRow& host : store.ListHosts()) {
    const StructPtr row = GetOutputStructure();
    row->SetField("Name", host.name);
    row->SetField("UUID", host.uuid);
    if (const auto member = store.FindMember(host.id)) {
      row->SetField("Cluster UUID", member->cluster);
      row->SetField("Membership", std::string(member->witness ? "witness" : "data") +
                                      (member->running ? "" : ", not restored"));
    }
    row->SetField("Fault Domain", host.faultDomain);
    row->SetField("API Version", MetaInt::New(host.apiVersion));
    list->Add(row);
  }
  output->SetRootObject(list);
}

HostReboot::HostReboot() {
  DescribeOperation(
      "Reboot a host: what runs on it is lost, what it has persisted is kept for the restore "
      "commands.");
}

InputSpecPtr HostReboot::GetInputSpecInternal() {
  return MakeInputSpec({{"name", "n", ParameterType::kString, Need::kOptional,
                         "Name of the host; the one that autocli's --host selects if not given."}});
}

void HostReboot::ExecuteInternal(const InputPtr& input, const OutputPtr& output) {
  SucceedOrNothing(output, "Unable to reboot host: ", [&] {
    ChangeLab([&](Store& store) {
      HostRow host = RequireHost(store, input->HasParameter("name") ? input->GetParameter("name")
                                                                    : LabHost::Current().GetName());
      Reboot(store, host);
    });
  });
}

Reset::Reset() {
  DescribeOperation("Make the lab as it was when new: every host and cluster is lost.");
}

void Reset::ExecuteInternal(const InputPtr&, const OutputPtr& output) {
  SucceedOrNothing(output, "Unable to reset the lab: ", [] {
    ChangeLab(ResetLab);
    ChangeLab(SettleRoots);
  });
}

}  // namespace Lab
