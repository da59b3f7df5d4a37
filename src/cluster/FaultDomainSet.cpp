#include <string>

#include "cluster/ClusterCommands.h"
#include "frame/Constants.h"
#include "frame/ControlLibrary.h"

namespace OrvaneCli::DovraNamespace {

namespace {

void SetOrReset(const std::string& name) {
  const ControlLibrary library;
  if (name.empty()) {
    library->ResetFaultDomain();
  } else {
    library->SetFaultDomain(name);
  }
}

}  // namespace

FaultDomainSet::FaultDomainSet() {
  DescribeOperation("Set the fault domain for this host");
}

InputSpecPtr FaultDomainSet::GetInputSpecInternal() {
  return MakeInputSpec({
      {"fdname", "n", ParameterType::kString, Need::kRequired,
       "Fault domain name to use for this host. Empty string means reset to default."},
  });
}

void FaultDomainSet::ExecuteInternal(const InputPtr& input, const OutputPtr& output) {
  const std::string name = input->GetParameter("fdname");
  if (name.size() > kMaxFaultDomainNameLength) {  // in bytes: the limit is that of the stored text
    output->AddErrorMessage("Fault domain name cannot exceed " +
                            std::to_string(kMaxFaultDomainNameLength) + " characters.");
  } else {
    try {
      SetOrReset(name);
    } catch (const DovraCtlException& failure) {
      Report(output, "Unable to set fault domain name: ", failure);
    }
  }
  output->SetRootObject(MetaBool::New(true));  // after failures too; the messages tell
}

}  // namespace OrvaneCli::DovraNamespace
