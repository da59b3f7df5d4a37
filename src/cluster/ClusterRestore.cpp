#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

class ClusterRestore final : public SuccessCommand<ClusterRestore> {
 public:
  ClusterRestore() { DescribeOperation("Restore the persisted Dovra cluster configuration."); }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({
        {"boot", nullptr, ParameterType::kFlag, Need::kOptional,
         "Set when restoring the cluster during boot (internal only!)"},
    });
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    try {
      const ControlLibrary library;
      library->RestoreClusterConfig(input->IsFlagSet("boot"));
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure);
      output->SetRootObject(MetaBool::New(false));
    }
  }
};

template CommandPtr MakeCommand<ClusterRestore>();

}  // namespace OrvaneCli::DovraNamespace
