#include "frame/Command.h"
#include "network/NetworkIpAdd.h"

namespace OrvaneCli::DovraNamespace {

class NetworkIpSet final : public SuccessCommand<NetworkIpSet> {
 public:
  NetworkIpSet() {
    DescribeOperation("Reconfigure an IP interface in the Dovra network configuration.");
  }

 private:
  InputSpecPtr GetInputSpecInternal() override { return NetworkIpAdd::GetInputSpecCommon(); }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    NetworkIpAdd::ExecuteCommon(input, output, true);
  }
};

template CommandPtr MakeCommand<NetworkIpSet>();

}  // namespace OrvaneCli::DovraNamespace
