#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

class StorageAutoModeSet final : public SuccessCommand<StorageAutoModeSet> {
 public:
  StorageAutoModeSet() { DescribeOperation("Configure storage auto claim mode"); }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({
        // Required, because neither value is the default.
        {"enabled", nullptr, ParameterType::kBool, Need::kRequired,
         "Changing this value to true will result in enabling auto disk claim mode. Disks will be "
         "claimed by the Dovra service in next storage event, e.g.: adapter rescan and disk "
         "hot-plug. Set to false to disable storage auto claim mode."},
    });
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    try {
      const ControlLibrary library;
      library->SetAutoClaimMode(input->GetParameterBool("enabled"));
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure, "Unable to set storage auto claim mode: ");
    }
  }
};

template CommandPtr MakeCommand<StorageAutoModeSet>();

}  // namespace OrvaneCli::DovraNamespace
