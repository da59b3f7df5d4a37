#include "network/NetworkCommands.h"

namespace OrvaneCli::DovraNamespace {

NetworkIpRemove::NetworkIpRemove() {
  DescribeOperation("Remove an IP interface from the Dovra network configuration.");
}

InputSpecPtr NetworkIpRemove::GetInputSpecInternal() {
  return NetworkRemove::GetInputSpecCommon();
}

void NetworkIpRemove::ExecuteInternal(const InputPtr& input, const OutputPtr& output) {
  NetworkRemove::ExecuteCommon(input, output);
}

}  // namespace OrvaneCli::DovraNamespace
