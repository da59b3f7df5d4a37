#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

class NetworkClear final : public SuccessCommand<NetworkClear> {
 public:
  NetworkClear() { DescribeOperation("Clear the Dovra network configuration."); }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    SucceedOrFalse(output, "",
                   [](const ControlLibrary& library) { library->ClearNetworkConfig(); });
  }
};

template CommandPtr MakeCommand<NetworkClear>();

}  // namespace OrvaneCli::DovraNamespace
