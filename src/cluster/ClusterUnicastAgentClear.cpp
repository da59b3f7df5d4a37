#include <string>
#include <vector>

#include "cluster/ClusterCommands.h"
#include "cluster/ClusterMessages.h"
#include "cluster/UnicastAgent.h"
#include "frame/ControlLibrary.h"
#include "frame/Text.h"
#include "platform/corectl/DovraUtil.h"

namespace OrvaneCli::DovraNamespace {

using CoreCtl::Dovra::DovraUtil;

namespace {

/// Tells less than the listing does of a field in the middle.
std::string DescribeFault(const UnicastAgentEntry& entry) {
  const auto field = entry.GetBrokenField();
  const bool isNamed = field == UnicastAgentEntry::kNodeUuid || field == UnicastAgentEntry::kPort;
  return isNamed ? entry.DescribeFault() : "Invalid unicastAgent entries";
}

}  // namespace

ClusterUnicastAgentClear::ClusterUnicastAgentClear() {
  DescribeOperation("Removes all unicast agents in the Dovra cluster configuration.");
}

void ClusterUnicastAgentClear::ExecuteInternal(const InputPtr&, const OutputPtr& output) {
  try {
    const ControlLibrary library;
    if (!library->GetClusterConfig().enabled) {
      output->AddErrorMessage(kNotEnabledMessage);
      return;
    }
    if (DovraUtil::IsWitnessNode()) {
      output->AddErrorMessage(
          "Unable to remove unicast agent(s), this host is a witness node which doesn't support "
          "removing unicast agent.");
      return;
    }
    std::vector<std::string> agents;
    library->GetUnicastAgents(agents);
    bool needsRefresh = false;
    for (const std::string& agent : agents) {  // what is removed before a bad entry stays removed
      const UnicastAgentEntry entry(agent);
      if (!entry.IsWhole()) {
        output->AddErrorMessage(DescribeFault(entry));
        return;
      }
      const std::string& addressText = entry.GetText(UnicastAgentEntry::kAddress);
      const auto address = ParseAddress(addressText);
      if (!address) {
        output->AddErrorMessage(InvalidAddressMessage(addressText));
        return;
      }
      const bool isSettled =
          library->RemoveUnicastAgent(entry.GetText(UnicastAgentEntry::kNodeUuid), *address,
                                      entry.GetNumber(UnicastAgentEntry::kPort));
      if (!isSettled) needsRefresh = true;
    }
    if (needsRefresh) library->RefreshUnicastAgents();
    output->SetRootObject(MetaBool::New(true));
  } catch (const DovraCtlException& failure) {
    Report(output, "Unable to remove unicast agents: ", failure);
  }
}

}  // namespace OrvaneCli::DovraNamespace
