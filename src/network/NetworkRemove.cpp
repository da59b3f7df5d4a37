#include "frame/Command.h"
#include "network/InterfaceRemoval.h"

namespace OrvaneCli::DovraNamespace {

class NetworkRemove final : public InterfaceRemoval<NetworkRemove> {
 public:
  NetworkRemove() {
    DescribeOperation("Remove an interface from the Dovra network configuration.");
  }
};

template CommandPtr MakeCommand<NetworkRemove>();

}  // namespace OrvaneCli::DovraNamespace
