#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

class NetworkRestore final : public SuccessCommand<NetworkRestore> {
 public:
  NetworkRestore() { DescribeOperation("Restore the persisted Dovra network configuration."); }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    try {
      const ControlLibrary library;
      library->RestoreNetworkConfig();
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure);
      output->SetRootObject(MetaBool::New(false));
    }
  }
};

template CommandPtr MakeCommand<NetworkRestore>();

}  // namespace OrvaneCli::DovraNamespace
