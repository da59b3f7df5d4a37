#include "cluster/ClusterCommands.h"
#include "frame/ControlLibrary.h"

namespace OrvaneCli::DovraNamespace {

ClusterRestore::ClusterRestore() {
  DescribeOperation("Restore the persisted Dovra cluster configuration.");
}

InputSpecPtr ClusterRestore::GetInputSpecInternal() {
  return MakeInputSpec({
      {"boot", "", ParameterType::kFlag, Need::kOptional,
       "Set when restoring the cluster during boot (internal only!)"},
  });
}

void ClusterRestore::ExecuteInternal(const InputPtr& input, const OutputPtr& output) {
  SucceedOrFalse(output, "", [&] {
    const ControlLibrary library;
    library->RestoreClusterConfig(input->IsFlagSet("boot"));
  });
}

}  // namespace OrvaneCli::DovraNamespace
