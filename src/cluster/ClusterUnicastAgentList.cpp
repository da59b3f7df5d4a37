#include "cluster/ClusterMessages.h"
#include "cluster/UnicastAgent.h"
#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

class ClusterUnicastAgentList final : public ListCommand<ClusterUnicastAgentList> {
 public:
  static constexpr Record kRecord = {
      .name = "UnicastAgentList",
      .fields =
          {
              {"NodeUuid", MetaType::kString},
              {"IsWitness", MetaType::kInt},
              {"Supports Unicast", MetaType::kBool},
              {"IP Address", MetaType::kString},
              {"Port", MetaType::kInt},
              {"Iface Name", MetaType::kString},
          },
      .formatter = "table",
      .caption = "Unicast Agent",
      .separator = ",",
  };

  ClusterUnicastAgentList() {
    DescribeOperation("List all unicast agents in the Dovra cluster configuration.");
  }

 private:
  // "IsWitness" is shown as the library's number, not as a Boolean.
  static StructPtr MakeRow(const UnicastAgentEntry& entry) {
    using Entry = UnicastAgentEntry;
    StructPtr row = GetOutputStructure();
    row->SetField("NodeUuid", entry.GetText(Entry::kNodeUuid));
    row->SetField("IsWitness", MetaInt::New(entry.GetNumber(Entry::kIsWitness)));
    row->SetField("Supports Unicast", MetaBool::New(entry.GetNumber(Entry::kSupportsUnicast) != 0));
    row->SetField("IP Address", entry.GetText(Entry::kAddress));
    row->SetField("Port", MetaInt::New(entry.GetNumber(Entry::kPort)));
    row->SetField("Iface Name", entry.GetText(Entry::kInterfaceName));
    return row;
  }

  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    const ListPtr list = MakeList();
    try {
      const ControlLibrary library;
      if (!library->GetClusterConfig().enabled) return output->AddErrorMessage(kNotEnabledMessage);
      if (DovraUtil::IsWitnessNode()) {
        output->AddErrorMessage(
            "Unable to list unicast agent, this host is a witness node which doesn't support "
            "listing unicast agent.");
        return output->SetRootObject(list);  // empty; other refusals set no result
      }
      std::vector<std::string> agents;
      library->GetUnicastAgents(agents);
      for (const std::string& agent : agents) {
        const UnicastAgentEntry entry(agent);
        if (!entry.IsComplete()) return output->AddErrorMessage(entry.DescribeFault());
        list->Add(MakeRow(entry));
      }
    } catch (const DovraCtlException& failure) {
      Report(output, failure, "Unable to list unicast agent: ");
    }
    output->SetRootObject(list);
  }
};

template CommandPtr MakeCommand<ClusterUnicastAgentList>();

}  // namespace OrvaneCli::DovraNamespace
