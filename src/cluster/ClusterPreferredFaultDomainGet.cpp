#include <string>

#include "cluster/ClusterCommands.h"
#include "frame/ControlLibrary.h"
#include "platform/corectl/DovraUtil.h"

namespace OrvaneCli::DovraNamespace {

using CoreCtl::Dovra::DovraUtil;

namespace {

constexpr Field kFields[] = {
    {"Preferred Fault Domain Name", MetaType::kString},
    {"Preferred Fault Domain Id", MetaType::kString},
};

}  // namespace

const Record ClusterPreferredFaultDomainGet::kRecord = {"PreferredFaultDomain", kFields};

ClusterPreferredFaultDomainGet::ClusterPreferredFaultDomainGet() {
  DescribeFetcher("Get the preferred fault domain for a stretched cluster.");
  SetDefaultOutputFormatter("simple");
}

void ClusterPreferredFaultDomainGet::ExecuteInternal(const InputPtr&, const OutputPtr& output) {
  try {
    const ControlLibrary library;
    if (!library->GetClusterConfig().enabled || !DovraUtil::IsInStretchedCluster()) {
      output->AddErrorMessage(
          "Cannot get preferred fault domain if host is not in a stretched cluster.");
      return;
    }
    std::string id, name;
    DovraUtil::GetPreferredFaultDomainInfo(id, name);
    const StructPtr record = GetOutputStructure();
    record->SetField("Preferred Fault Domain Name", name);
    record->SetField("Preferred Fault Domain Id", id);
    output->SetRootObject(record);
  } catch (const DovraCtlException& failure) {
    Report(output, "Unable to get preferred fault domain name: ", failure);
  }
}

}  // namespace OrvaneCli::DovraNamespace
