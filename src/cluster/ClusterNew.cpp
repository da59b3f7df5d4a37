#include "cluster/ClusterCommands.h"
#include "cluster/ClusterMessages.h"
#include "frame/ControlLibrary.h"
#include "frame/Text.h"

namespace OrvaneCli::DovraNamespace {

ClusterNew::ClusterNew() {
  DescribeOperation(
      "Create a Dovra cluster with current host joined. A random sub-cluster UUID will be "
      "generated.");
}

void ClusterNew::ExecuteInternal(const InputPtr&, const OutputPtr& output) {
  try {
    const ControlLibrary library;
    if (library->GetClusterConfig().enabled) {
      output->AddErrorMessage(kAlreadyInClusterMessage);
      return;
    }
    const std::string uuid = GenerateUuid();
    if (uuid.empty()) {
      output->AddErrorMessage(kNoUuidMessage);
      return;
    }
    library->CreateCluster(uuid, true, false);
    output->SetRootObject(MetaBool::New(true));
  } catch (const DovraCtlException& failure) {
    Report(output, "Unable to create the new Dovra cluster: ", failure);
    output->SetRootObject(MetaBool::New(false));
  }
}

}  // namespace OrvaneCli::DovraNamespace
