#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

class PolicyClearDefault final : public SuccessCommand<PolicyClearDefault> {
 public:
  PolicyClearDefault() { DescribeOperation("Clear default Dovra storage policy values."); }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    SucceedOrFalse(output, "",
                   [](const ControlLibrary& library) { library->ClearPolicyDefaults(); });
  }
};

template CommandPtr MakeCommand<PolicyClearDefault>();

}  // namespace OrvaneCli::DovraNamespace
