#include "cluster/UnicastAgent.h"
#include "frame/Command.h"
#include "frame/Text.h"

namespace OrvaneCli::DovraNamespace {

class ClusterUnicastAgentRemove final : public SuccessCommand<ClusterUnicastAgentRemove> {
 public:
  ClusterUnicastAgentRemove() {
    DescribeOperation("Remove a unicast agent from the Dovra cluster configuration.");
  }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({
        {"uuid", "u", ParameterType::kString, Need::kOptional, "UUID of the unicast agent."},
        AgentAddressParameter(),
        AgentPortParameter(),
    });
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    try {
      if (DovraUtil::IsWitnessNode()) {
        return output->AddErrorMessage(
            "This host is a witness node which doesn't support removing unicast agent.");
      }
      const ControlLibrary library;
      const std::string uuid = Given<std::string>(input, "uuid").value_or(kNilUuid);
      const std::string addressText = input->GetParameter("addr");
      const auto address = ParseAddress(addressText);
      if (!address) return output->AddErrorMessage(InvalidAddressMessage(addressText));
      if (!library->RemoveUnicastAgent(uuid, *address, ReadAgentPort(input))) {
        library->RefreshUnicastAgents();
      }
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure, "Unable to remove the unicast agent: ");
    }
  }
};

template CommandPtr MakeCommand<ClusterUnicastAgentRemove>();

}  // namespace OrvaneCli::DovraNamespace
