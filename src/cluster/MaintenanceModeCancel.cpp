#include "cluster/ClusterCommands.h"
#include "platform/corectl/DovraUtil.h"

namespace OrvaneCli::DovraNamespace {

MaintenanceModeCancel::MaintenanceModeCancel() {
  DescribeOperation("Cancel an in-progress Dovra maintenance mode operation.");
}

void MaintenanceModeCancel::ExecuteInternal(const InputPtr&, const OutputPtr& output) {
  SucceedOrFalse(output, "", [] { CoreCtl::Dovra::DovraUtil::DecomCancel(); });
}

}  // namespace OrvaneCli::DovraNamespace
