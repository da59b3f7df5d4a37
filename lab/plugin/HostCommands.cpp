// `lab host` and `lab reset`.

#include "corectl/Clusters.h"
#include "corectl/Hosts.h"
#include "corectl/LabHost.h"
#include "frame/Command.h"
#include "hostroot/HostRoot.h"

namespace Lab {

using namespace OrvaneCli::DovraNamespace;

namespace {

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

/// Settles the hosts' roots after a change was committed. A failure does not undo the change.
void SettleHosts(const OutputPtr& output) {
  ChangeLab([&](Store& store) {
    for (const std::string& failure : SettleRoots(store)) output->AddErrorMessage(failure);
  });
}

}  // namespace

class HostAdd final : public SuccessCommand<HostAdd> {
 public:
  HostAdd() {
    DescribeOperation("Add a host to the lab.");
    SetMetaDataField("scope", "lab");
  }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({{"name", "n", ParameterType::kString, Need::kRequired,
                           "Name of the new host, for autocli's --host."}});
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    SucceedOrNothing(output, "Unable to add host: ", [&] {
      const std::string name = input->GetParameter("name");
      RequireHostName(name);
      ChangeLab([&](Store& store) {
        if (store.FindHost(name)) Refuse("There is a host \"" + name + "\" already.");
        AddHost(store, name);
      });
      SettleHosts(output);
    });
  }
};

class HostRemove final : public SuccessCommand<HostRemove> {
 public:
  HostRemove() {
    DescribeOperation("Remove a host from the lab, and from its cluster as if it had died.");
    SetMetaDataField("scope", "lab");
  }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec(
        {{"name", "n", ParameterType::kString, Need::kRequired, "Name of the host."}});
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    SucceedOrNothing(output, "Unable to remove host: ", [&] {
      const std::string name = input->GetParameter("name");
      ChangeLab([&](Store& store) { RemoveHost(store, RequireHost(store, name)); });
      SettleHosts(output);
    });
  }
};

class HostList final : public ListCommand<HostList> {
 public:
  static constexpr Record kRecord = {
      .name = "LabHostList",
      .fields =
          {
              {"Name", MetaType::kString},
              {"UUID", MetaType::kString},
              {"Cluster UUID", MetaType::kString},
              {"Membership", MetaType::kString},
              {"Fault Domain", MetaType::kString},
              {"API Version", MetaType::kInt},
              {"Network Group", MetaType::kInt},
          },
      .formatter = "table",
      .separator = ",",
  };

  HostList() {
    DescribeFetcher("List the lab's hosts.");
    SetMetaDataField("scope", "lab");
  }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    const ListPtr list = MakeList();
    Store& store = OpenStore();
    Store::Transaction transaction(store, Store::Transaction::Kind::kRead);
    for (const HostRow& host : store.ListHosts()) {
      const StructPtr row = GetOutputStructure();
      row->SetField("Name", host.name);
      row->SetField("UUID", host.uuid);
      if (const auto member = store.FindMember(host.id)) {
        row->SetField("Cluster UUID", RequireCluster(store, member->cluster).uuid);
        row->SetField("Membership", std::string(member->witness ? "witness" : "data") +
                                        (member->running ? "" : ", not restored"));
      }
      row->SetField("Fault Domain", host.faultDomain);
      row->SetField("API Version", MetaInt::New(host.apiVersion));
      row->SetField("Network Group", MetaInt::New(host.networkGroup));
      list->Add(row);
    }
    output->SetRootObject(list);
  }
};

class HostReboot final : public SuccessCommand<HostReboot> {
 public:
  HostReboot() {
    DescribeOperation(
        "Reboot a host: what runs on it is lost, what it has persisted is kept for the restore "
        "commands.");
  }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec(
        {{"name", "n", ParameterType::kString, Need::kOptional,
          "Name of the host; the one that autocli's --host selects if not given."}});
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    SucceedOrNothing(output, "Unable to reboot host: ", [&] {
      ChangeLab([&](Store& store) {
        HostRow host = RequireHost(
            store, Given<std::string>(input, "name").value_or(LabHost::Current().GetName()));
        Reboot(store, host);
      });
    });
  }
};

class Reset final : public SuccessCommand<Reset> {
 public:
  Reset() {
    DescribeOperation("Make the lab as it was when new: every host and cluster is lost.");
    SetMetaDataField("scope", "lab");
    SetMetaDataField("confirm", "Every host and cluster of the lab will be lost.");
  }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({{"force", nullptr, ParameterType::kFlag, Need::kOptional,
                           "Do it without a question; needed where nobody can be asked."}});
  }

  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    SucceedOrNothing(output, "Unable to reset the lab: ", [&] {
      ChangeLab(ResetLab);
      SettleHosts(output);
    });
  }
};

}  // namespace Lab

namespace OrvaneCli::DovraNamespace {
template CommandPtr MakeCommand<Lab::HostAdd>();
template CommandPtr MakeCommand<Lab::HostRemove>();
template CommandPtr MakeCommand<Lab::HostList>();
template CommandPtr MakeCommand<Lab::HostReboot>();
template CommandPtr MakeCommand<Lab::Reset>();
}  // namespace OrvaneCli::DovraNamespace
