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
    SucceedOrNothing(
        output, "Unable to get Dovra storage auto claim mode: ", [](const ControlLibrary& library) {
          StructPtr record = GetOutputStructure();
          record->SetField("Enabled", MetaBool::New(library->GetAutoClaimMode()));
          return record;
        });
  }
};

template CommandPtr MakeCommand<StorageAutoModeGet>();

}  // namespace OrvaneCli::DovraNamespace
