#include "frame/ControlLibrary.h"
#include "policy/PolicyCommands.h"

namespace OrvaneCli::DovraNamespace {

PolicyClearDefault::PolicyClearDefault() {
  DescribeOperation("Clear default Dovra storage policy values.");
}

void PolicyClearDefault::ExecuteInternal(const InputPtr&, const OutputPtr& output) {
  SucceedOrFalse(output, "", [] {
    const ControlLibrary library;
    library->ClearPolicyDefaults();
  });
}

}  // namespace OrvaneCli::DovraNamespace
