#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

class StorageAutoModeGet final : public RecordCommand<StorageAutoModeGet> {
 public:
  static constexpr Record kRecord = {
      .name = "AutoMode",
      .fields = {{"Enabled", MetaType::kBool}},
  };

  StorageAutoModeGet() { DescribeFetcher(" Get status of storage auto claim mode."); }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    const StructPtr record = GetOutputStructure();
    try {
      const ControlLibrary library;
      record->SetField("Enabled", MetaBool::New(library->GetAutoClaimMode()));
      output->SetRootObject(record);
    } catch (const DovraCtlException& failure) {
      Report(output, failure, "Unable to get Dovra storage auto claim mode: ");
    }
  }
};

template CommandPtr MakeCommand<StorageAutoModeGet>();

}  // namespace OrvaneCli::DovraNamespace
