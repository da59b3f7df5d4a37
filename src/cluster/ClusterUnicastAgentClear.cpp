#include "cluster/ClusterMessages.h"
#include "cluster/UnicastAgent.h"
#include "frame/Command.h"
#include "frame/Text.h"

namespace OrvaneCli::DovraNamespace {

namespace {

/// Returns an error message. It names the broken field only when that is the UUID or the port.
std::string DescribeFaultForClearing(const UnicastAgentEntry& entry) {
  const auto field = entry.GetBrokenField();
  const bool isNamed = field == UnicastAgentEntry::kNodeUuid || field == UnicastAgentEntry::kPort;
  return isNamed ? entry.DescribeFault() : "Invalid unicastAgent entries";
}

}  // namespace

class ClusterUnicastAgentClear final : public SuccessCommand<ClusterUnicastAgentClear> {
 public:
  ClusterUnicastAgentClear() {
    DescribeOperation("Removes all unicast agents in the Dovra cluster configuration.");
  }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    try {
      const ControlLibrary library;
      if (!library->GetClusterConfig().enabled) return output->AddErrorMessage(kNotEnabledMessage);
      if (DovraUtil::IsWitnessNode()) {
        return output->AddErrorMessage(
            "Unable to remove unicast agent(s), this host is a witness node which doesn't support "
            "removing unicast agent.");
      }
      std::vector<std::string> agents;
      library->GetUnicastAgents(agents);
      bool needsRefresh = false;
      // There is no rollback: agents removed before a malformed entry stay removed.
      for (const std::string& agent : agents) {
        const UnicastAgentEntry entry(agent);
        if (!entry.IsComplete()) return output->AddErrorMessage(DescribeFaultForClearing(entry));
        const std::string& addressText = entry.GetText(UnicastAgentEntry::kAddress);
        const auto address = ParseAddress(addressText);
        if (!address) return output->AddErrorMessage(InvalidAddressMessage(addressText));
        const std::int32_t port = ClampToInt32(entry.GetNumber(UnicastAgentEntry::kPort));
        const std::string& uuid = entry.GetText(UnicastAgentEntry::kNodeUuid);
        if (!library->RemoveUnicastAgent(uuid, *address, port)) needsRefresh = true;
      }
      if (needsRefresh) library->RefreshUnicastAgents();
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure, "Unable to remove unicast agents: ");
    }
  }
};

template CommandPtr MakeCommand<ClusterUnicastAgentClear>();

}  // namespace OrvaneCli::DovraNamespace
