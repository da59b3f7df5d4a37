#include <string>

#include "cluster/ClusterCommands.h"
#include "cluster/UnicastAgent.h"
#include "frame/Constants.h"
#include "frame/ControlLibrary.h"
#include "frame/Text.h"
#include "platform/corectl/DovraUtil.h"

namespace OrvaneCli::DovraNamespace {

using CoreCtl::Dovra::DovraUtil;

ClusterUnicastAgentRemove::ClusterUnicastAgentRemove() {
  DescribeOperation("Remove a unicast agent from the Dovra cluster configuration.");
}

InputSpecPtr ClusterUnicastAgentRemove::GetInputSpecInternal() {
  return MakeInputSpec({
      {"uuid", "u", ParameterType::kString, Need::kOptional, "UUID of the unicast agent."},
      kAgentAddressParameter,
      kAgentPortParameter,
  });
}

void ClusterUnicastAgentRemove::ExecuteInternal(const InputPtr& input, const OutputPtr& output) {
  try {
    if (DovraUtil::IsWitnessNode()) {
      output->AddErrorMessage(
          "This host is a witness node which doesn't support removing unicast agent.");
      return;
    }
    const ControlLibrary library;
    const std::string uuid = input->HasParameter("uuid") ? input->GetParameter("uuid") : kNilUuid;
    const std::string addressText = input->GetParameter("addr");
    const auto address = ParseAddress(addressText);
    if (!address) {
      output->AddErrorMessage(InvalidAddressMessage(addressText));
      return;
    }
    if (!library->RemoveUnicastAgent(uuid, *address, ReadAgentPort(input))) {
      library->RefreshUnicastAgents();
    }
    output->SetRootObject(MetaBool::New(true));
  } catch (const DovraCtlException& failure) {
    Report(output, "Unable to remove the unicast agent: ", failure);
  }
}

}  // namespace OrvaneCli::DovraNamespace
