#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

class FaultDomainReset final : public SuccessCommand<FaultDomainReset> {
 public:
  FaultDomainReset() { DescribeOperation("Reset Host fault domain to default value"); }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    try {
      const ControlLibrary library;
      library->ResetFaultDomain();
    } catch (const DovraCtlException&) {
      output->AddErrorMessage("Unable to reset fault domain name");
    }
    output->SetRootObject(MetaBool::New(true));  // also after a failure
  }
};

template CommandPtr MakeCommand<FaultDomainReset>();

}  // namespace OrvaneCli::DovraNamespace
