#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

class PolicyClearDefault final : public SuccessCommand<PolicyClearDefault> {
 public:
  PolicyClearDefault() { DescribeOperation("Clear default Dovra storage policy values."); }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    try {
      const ControlLibrary library;
      library->ClearPolicyDefaults();
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure);
      output->SetRootObject(MetaBool::New(false));
    }
  }
};

template CommandPtr MakeCommand<PolicyClearDefault>();

}  // namespace OrvaneCli::DovraNamespace
