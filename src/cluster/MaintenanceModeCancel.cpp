#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

class MaintenanceModeCancel final : public SuccessCommand<MaintenanceModeCancel> {
 public:
  MaintenanceModeCancel() {
    DescribeOperation("Cancel an in-progress Dovra maintenance mode operation.");
  }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    try {
      DovraUtil::DecomCancel();
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure);
      output->SetRootObject(MetaBool::New(false));
    }
  }
};

template CommandPtr MakeCommand<MaintenanceModeCancel>();

}  // namespace OrvaneCli::DovraNamespace
