#include "cluster/ClusterMessages.h"
#include "frame/Command.h"
#include "frame/Text.h"

namespace OrvaneCli::DovraNamespace {

class ClusterNew final : public SuccessCommand<ClusterNew> {
 public:
  ClusterNew() {
    DescribeOperation(
        "Create a Dovra cluster with current host joined. A random sub-cluster UUID will be "
        "generated.");
  }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    try {
      const ControlLibrary library;
      if (library->GetClusterConfig().enabled) {
        return output->AddErrorMessage(kAlreadyInClusterMessage);
      }
      const std::string uuid = GenerateUuid();
      if (uuid.empty()) return output->AddErrorMessage(kNoUuidMessage);
      library->CreateCluster(uuid, true, false);
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure, "Unable to create the new Dovra cluster: ");
      output->SetRootObject(MetaBool::New(false));
    }
  }
};

template CommandPtr MakeCommand<ClusterNew>();

}  // namespace OrvaneCli::DovraNamespace
