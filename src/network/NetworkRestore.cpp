#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

class NetworkRestore final : public SuccessCommand<NetworkRestore> {
 public:
  NetworkRestore() { DescribeOperation("Restore the persisted Dovra network configuration."); }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    SucceedOrFalse(output, "",
                   [](const ControlLibrary& library) { library->RestoreNetworkConfig(); });
  }
};

template CommandPtr MakeCommand<NetworkRestore>();

}  // namespace OrvaneCli::DovraNamespace
