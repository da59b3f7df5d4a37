// `lab fault`, `lab api`, `lab maintenance`, `lab resync`: a host made to behave as a rehearsal
// wants it.

#include "corectl/Hosts.h"
#include "corectl/LabHost.h"
#include "corectl/Operations.h"
#include "frame/Command.h"

namespace Lab {

using namespace OrvaneCli::DovraNamespace;

namespace {

ConstraintPtr AnyOperation() {
  ConstraintPtr constraint = OneOf({});
  for (const OperationRow& row : kOperations) {
    constraint->AddStringEnum(std::string(row.name), std::string(row.callers));
  }
  return constraint;
}

}  // namespace

class FaultAdd final : public SuccessCommand<FaultAdd> {
 public:
  FaultAdd() {
    DescribeOperation("Make the next calls of a control-library operation on this host fail.");
  }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({
        {"operation", "o", ParameterType::kString, Need::kRequired,
         "The operation that is to fail, e.g. LeaveCluster. The help of each command names those "
         "that it calls, and the shell completes them.",
         AnyOperation()},
        {"message", "m", ParameterType::kString, Need::kRequired,
         "What the operation says when it fails."},
        {"count", "c", ParameterType::kInt, Need::kOptional,
         "How many calls fail (%ENUM%, 1 if not given).", Between(1, 1000000)},
        {"after", "k", ParameterType::kInt, Need::kOptional,
         "How many calls pass first (%ENUM%, none if not given).", Between(0, 1000000)},
    });
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    SucceedOrNothing(output, "Unable to add fault: ", [&] {
      LabHost::Current().Change([&](Store& store, const HostRow& host) {
        const std::string message = input->GetParameter("message");
        const bool isBlank = message.find_first_not_of(" \t\r\n") == std::string::npos;
        if (isBlank) Refuse("A fault needs a message.");
        store.Save(FaultRow{0, host.id, input->GetParameter("operation"), message,
                            Given<std::int64_t>(input, "after").value_or(0),
                            Given<std::int64_t>(input, "count").value_or(1)});
      });
    });
  }
};

class FaultList final : public ListCommand<FaultList> {
 public:
  static constexpr Record kRecord = {
      .name = "LabFaultList",
      .fields =
          {
              {"Host", MetaType::kString},
              {"Operation", MetaType::kString},
              {"Message", MetaType::kString},
              {"After", MetaType::kInt},
              {"Remaining", MetaType::kInt},
          },
      .formatter = "table",
      .separator = ",",
  };

  FaultList() {
    DescribeFetcher(
        "List the faults that wait for their calls, on every host of the lab, or with autocli's "
        "--host on one host.");
  }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    const ListPtr list = MakeList();
    const auto show = [&](Store& store, const HostRow& host) {
      for (const FaultRow& fault : store.ListFaults(host.id)) {
        const StructPtr row = GetOutputStructure();
        row->SetField("Host", host.name);
        row->SetField("Operation", fault.operation);
        row->SetField("Message", fault.message);
        row->SetField("After", MetaInt::New(fault.passes));
        row->SetField("Remaining", MetaInt::New(fault.remaining));
        list->Add(row);
      }
    };
    if (Selected().namesHost) {
      LabHost::Current().Read(show);
    } else {
      Store& store = OpenStore();
      const Store::Transaction transaction(store, Store::Transaction::Kind::kRead);
      for (const HostRow& host : store.ListHosts()) show(store, host);
    }
    output->SetRootObject(list);
  }
};

class FaultClear final : public SuccessCommand<FaultClear> {
 public:
  FaultClear() {
    DescribeOperation(
        "Take back faults: every one on every host of the lab, or with autocli's --host those of "
        "one host.");
  }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({
        {"operation", "o", ParameterType::kString, Need::kOptional, "Only those on this operation.",
         AnyOperation()},
        {"message", "m", ParameterType::kString, Need::kOptional,
         "Only those that say this, as \"lab fault list\" shows it."},
    });
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    const auto operation = Given<std::string>(input, "operation");
    const auto message = Given<std::string>(input, "message");
    bool matched = !operation && !message;
    const auto clear = [&](Store& store, const HostRow& host) {
      for (const FaultRow& fault : store.ListFaults(host.id)) {
        if (operation.value_or(fault.operation) != fault.operation) continue;
        if (message.value_or(fault.message) != fault.message) continue;
        store.RemoveFault(fault.id);
        matched = true;
      }
    };
    SucceedOrNothing(output, "Unable to clear faults: ", [&] {
      const bool namesHost = Selected().namesHost;
      if (namesHost) {
        LabHost::Current().Change(clear);
      } else {
        ChangeLab([&](Store& store) {
          for (const HostRow& host : store.ListHosts()) clear(store, host);
        });
      }
      if (matched) return;
      Refuse((namesHost ? "Host " + Selected().host + " has no fault" : "No host has a fault") +
             (operation ? " on " + *operation : "") +
             (message ? " with the message \"" + *message + "\"" : "") +
             "; \"lab fault list\" shows all faults.");
    });
  }
};

class ApiSet final : public SuccessCommand<ApiSet> {
 public:
  ApiSet() { DescribeOperation("Set the version of this host's control library."); }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec(
        {{"version", "v", ParameterType::kInt, Need::kRequired,
          "Version (%ENUM%). Version 1 lacks the newer network operations.", Between(1, 2)}});
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    SucceedOrNothing(output, "Unable to set the API version: ", [&] {
      LabHost::Current().Change([&](Store& store, HostRow& host) {
        host.apiVersion = input->GetParameterInt("version");
        store.Save(host);
      });
    });
  }
};

class MaintenanceStart final : public SuccessCommand<MaintenanceStart> {
 public:
  MaintenanceStart() {
    DescribeOperation(
        "Let this host begin to enter maintenance mode; \"dovra maintenancemode cancel\" ends it.");
  }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    SucceedOrNothing(output, "Unable to start maintenance: ", [] {
      LabHost::Current().Change([](Store& store, HostRow& host) { StartMaintenance(store, host); });
    });
  }
};

class ResyncSet final : public SuccessCommand<ResyncSet> {
 public:
  ResyncSet() {
    DescribeOperation("Set how much this host resynchronises; the throttle limits it.");
  }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec(
        {{"demand", "d", ParameterType::kInt, Need::kRequired,
          "What resync would use unthrottled, in Mbps (%ENUM%).", Between(0, 1000000)}});
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    SucceedOrNothing(output, "Unable to set resync: ", [&] {
      LabHost::Current().Change([&](Store& store, HostRow& host) {
        host.resyncDemand = input->GetParameterInt("demand");
        store.Save(host);
      });
    });
  }
};

}  // namespace Lab

namespace OrvaneCli::DovraNamespace {
template CommandPtr MakeCommand<Lab::FaultAdd>();
template CommandPtr MakeCommand<Lab::FaultList>();
template CommandPtr MakeCommand<Lab::FaultClear>();
template CommandPtr MakeCommand<Lab::ApiSet>();
template CommandPtr MakeCommand<Lab::MaintenanceStart>();
template CommandPtr MakeCommand<Lab::ResyncSet>();
}  // namespace OrvaneCli::DovraNamespace
