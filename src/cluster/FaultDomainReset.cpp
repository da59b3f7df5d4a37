#include "cluster/ClusterCommands.h"
#include "frame/ControlLibrary.h"

namespace OrvaneCli::DovraNamespace {

FaultDomainReset::FaultDomainReset() {
  DescribeOperation("Reset Host fault domain to default value");
}

void FaultDomainReset::ExecuteInternal(const InputPtr&, const OutputPtr& output) {
  try {
    const ControlLibrary library;
    library->ResetFaultDomain();
  } catch (const DovraCtlException&) {
    output->AddErrorMessage("Unable to reset fault domain name");
  }
  output->SetRootObject(MetaBool::New(true));  // after a failure too; the message tells
}

}  // namespace OrvaneCli::DovraNamespace
