#include "frame/ControlLibrary.h"
#include "network/NetworkCommands.h"

namespace OrvaneCli::DovraNamespace {

NetworkClear::NetworkClear() {
  DescribeOperation("Clear the Dovra network configuration.");
}

void NetworkClear::ExecuteInternal(const InputPtr&, const OutputPtr& output) {
  SucceedOrFalse(output, "", [] {
    const ControlLibrary library;
    library->ClearNetworkConfig();
  });
}

}  // namespace OrvaneCli::DovraNamespace
