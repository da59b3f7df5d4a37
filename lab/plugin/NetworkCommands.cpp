// `lab network` and `lab agent`.

#include "corectl/Addresses.h"
#include "corectl/LabHost.h"
#include "corectl/Splits.h"
#include "frame/Command.h"
#include "store/Uuids.h"

namespace Lab {

using namespace OrvaneCli::DovraNamespace;

class NetworkSplit final : public SuccessCommand<NetworkSplit> {
 public:
  NetworkSplit() {
    DescribeOperation(
        "Split the network: the named hosts reach each other and nobody else, the others stay "
        "together. Split again, and there are more parts.");
    SetMetaDataField("scope", "lab");
  }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({{"name", "n", ParameterType::kStringList, Need::kRequired,
                           "Name of a host that is cut off with the others named."}});
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    SucceedOrNothing(output, "Unable to split the network: ", [&] {
      ChangeLab([&](Store& store) {
        SplitNetwork(store, Given<std::vector<std::string>>(input, "name").value());
      });
    });
  }
};

class NetworkHeal final : public SuccessCommand<NetworkHeal> {
 public:
  NetworkHeal() {
    DescribeOperation("End every split of the network: all hosts reach each other again.");
    SetMetaDataField("scope", "lab");
  }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    SucceedOrNothing(output, "Unable to heal the network: ", [] { ChangeLab(HealNetwork); });
  }
};

class AgentAdd final : public SuccessCommand<AgentAdd> {
 public:
  AgentAdd() {
    DescribeOperation(
        "Configure a unicast witness on this host, even beside another one, as a host may have "
        "been "
        "left by an older version.");
  }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({{"addr", "a", ParameterType::kString, Need::kRequired,
                           "IP address of the witness, e.g. 192.0.2.21."}});
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    constexpr std::int64_t kPort = 12321;
    SucceedOrNothing(output, "Unable to add the witness: ", [&] {
      LabHost::Current().Change([&](Store& store, const HostRow& host) {
        const std::string address = ToAddress(input->GetParameter("addr")).GetStringAddress();
        store.Save(AgentRow{0, host.id, kNilUuid, true, false, address, kPort, ""});
      });
    });
  }
};

}  // namespace Lab

namespace OrvaneCli::DovraNamespace {
template CommandPtr MakeCommand<Lab::NetworkSplit>();
template CommandPtr MakeCommand<Lab::NetworkHeal>();
template CommandPtr MakeCommand<Lab::AgentAdd>();
}  // namespace OrvaneCli::DovraNamespace
