#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

class NetworkClear final : public SuccessCommand<NetworkClear> {
 public:
  NetworkClear() { DescribeOperation("Clear the Dovra network configuration."); }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    try {
      const ControlLibrary library;
      library->ClearNetworkConfig();
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure);
      output->SetRootObject(MetaBool::New(false));
    }
  }
};

template CommandPtr MakeCommand<NetworkClear>();

}  // namespace OrvaneCli::DovraNamespace
