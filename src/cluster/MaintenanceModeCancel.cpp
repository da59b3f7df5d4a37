#include "frame/Command.h"
#include "platform/corectl/DovraUtil.h"

namespace OrvaneCli::DovraNamespace {

class MaintenanceModeCancel final : public SuccessCommand<MaintenanceModeCancel> {
 public:
  MaintenanceModeCancel() {
    DescribeOperation("Cancel an in-progress Dovra maintenance mode operation.");
  }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    SucceedOrFalse(output, "", [] { CoreCtl::Dovra::DovraUtil::DecomCancel(); });
  }
};

template CommandPtr MakeCommand<MaintenanceModeCancel>();

}  // namespace OrvaneCli::DovraNamespace
