#include <string>
#include <vector>

#include "cluster/ClusterCommands.h"
#include "cluster/ClusterMessages.h"
#include "cluster/UnicastAgent.h"
#include "frame/ControlLibrary.h"
#include "platform/corectl/DovraUtil.h"

namespace OrvaneCli::DovraNamespace {

using CoreCtl::Dovra::DovraUtil;

namespace {

constexpr Field kFields[] = {
    {"NodeUuid", MetaType::kString},
    {"IsWitness", MetaType::kInt},
    {"Supports Unicast", MetaType::kBool},
    {"IP Address", MetaType::kString},
    {"Port", MetaType::kInt},
    {"Iface Name", MetaType::kString},
};

/// Whether an agent is a witness is shown as the number that the library keeps.
StructPtr MakeRow(const UnicastAgentEntry& entry) {
  using Entry = UnicastAgentEntry;
  StructPtr row = ClusterUnicastAgentList::GetOutputStructure();
  row->SetField("NodeUuid", entry.GetText(Entry::kNodeUuid));
  row->SetField("IsWitness", MetaInt::New(entry.GetNumber(Entry::kIsWitness)));
  row->SetField("Supports Unicast", MetaBool::New(entry.GetNumber(Entry::kSupportsUnicast) != 0));
  row->SetField("IP Address", entry.GetText(Entry::kAddress));
  row->SetField("Port", MetaInt::New(entry.GetNumber(Entry::kPort)));
  row->SetField("Iface Name", entry.GetText(Entry::kInterfaceName));
  return row;
}

}  // namespace

const Record ClusterUnicastAgentList::kRecord = {"UnicastAgentList", kFields};

ClusterUnicastAgentList::ClusterUnicastAgentList() {
  DescribeOperation("List all unicast agents in the Dovra cluster configuration.");
  SetDefaultOutputFormatter("table");
  SetDefaultOutputParameter("header:UnicastAgentList", "Unicast Agent");
  SetDefaultOutputParameter("fields:UnicastAgentList", FieldNames(kRecord));
}

void ClusterUnicastAgentList::ExecuteInternal(const InputPtr&, const OutputPtr& output) {
  const ListPtr list = MakeList();
  try {
    const ControlLibrary library;
    if (!library->GetClusterConfig().enabled) {
      output->AddErrorMessage(kNotEnabledMessage);
      return;
    }
    if (DovraUtil::IsWitnessNode()) {
      output->AddErrorMessage(
          "Unable to list unicast agent, this host is a witness node which doesn't support listing "
          "unicast agent.");
      output->SetRootObject(list);
      return;
    }
    std::vector<std::string> agents;
    library->GetUnicastAgents(agents);
    for (const std::string& agent : agents) {
      const UnicastAgentEntry entry(agent);
      if (!entry.IsWhole()) {
        output->AddErrorMessage(entry.DescribeFault());
        return;
      }
      list->Add(MakeRow(entry));
    }
  } catch (const DovraCtlException& failure) {
    Report(output, "Unable to list unicast agent: ", failure);
  }
  output->SetRootObject(list);
}

}  // namespace OrvaneCli::DovraNamespace
