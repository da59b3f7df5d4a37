#include "frame/ControlLibrary.h"
#include "network/NetworkCommands.h"

namespace OrvaneCli::DovraNamespace {

NetworkRestore::NetworkRestore() {
  DescribeOperation("Restore the persisted Dovra network configuration.");
}

void NetworkRestore::ExecuteInternal(const InputPtr&, const OutputPtr& output) {
  SucceedOrFalse(output, "", [] {
    const ControlLibrary library;
    library->RestoreNetworkConfig();
  });
}

}  // namespace OrvaneCli::DovraNamespace
