#include "frame/Command.h"
#include "network/InterfaceRemoval.h"

namespace OrvaneCli::DovraNamespace {

class NetworkIpRemove final : public InterfaceRemoval<NetworkIpRemove> {
 public:
  NetworkIpRemove() {
    DescribeOperation("Remove an IP interface from the Dovra network configuration.");
  }
};

template CommandPtr MakeCommand<NetworkIpRemove>();

}  // namespace OrvaneCli::DovraNamespace
