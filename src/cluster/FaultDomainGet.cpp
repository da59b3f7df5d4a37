#include "cluster/ClusterCommands.h"
#include "frame/ControlLibrary.h"
#include "platform/corectl/DovraUtil.h"

namespace OrvaneCli::DovraNamespace {

using CoreCtl::Dovra::DovraUtil;

namespace {

constexpr Field kFields[] = {
    {"faultDomainName", MetaType::kString},
    {"faultDomainId", MetaType::kString},
};

}  // namespace

const Record FaultDomainGet::kRecord = {"FaultDomain", kFields};

FaultDomainGet::FaultDomainGet() {
  DescribeFetcher("Get the fault domain name for this host.");
  SetDefaultOutputFormatter("simple");
}

void FaultDomainGet::ExecuteInternal(const InputPtr&, const OutputPtr& output) {
  try {
    const StructPtr record = GetOutputStructure();
    const ControlLibrary library;
    record->SetField("faultDomainName", library->GetFaultDomainName());
    if (library->GetClusterConfig().enabled) {  // outside a cluster the name has no id
      record->SetField("faultDomainId", DovraUtil::GetFaultDomainId());
    }
    output->SetRootObject(record);
  } catch (const DovraCtlException& failure) {
    Report(output, "Unable to get fault domain name: ", failure);
  }
}

}  // namespace OrvaneCli::DovraNamespace
