#include "network/NetworkCommands.h"

namespace OrvaneCli::DovraNamespace {

NetworkIpSet::NetworkIpSet() {
  DescribeOperation("Reconfigure an IP interface in the Dovra network configuration.");
}

InputSpecPtr NetworkIpSet::GetInputSpecInternal() {
  return NetworkIpAdd::GetInputSpecCommon();
}

void NetworkIpSet::ExecuteInternal(const InputPtr& input, const OutputPtr& output) {
  NetworkIpAdd::ExecuteCommon(input, output, true);
}

}  // namespace OrvaneCli::DovraNamespace
