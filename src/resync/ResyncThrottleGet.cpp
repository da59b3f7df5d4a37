#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

class ResyncThrottleGet final : public RecordCommand<ResyncThrottleGet> {
 public:
  static constexpr Record kRecord = {
      .name = "ResyncThrottle",
      .fields = {{"Level", MetaType::kInt, "Mbps"}},
  };

  ResyncThrottleGet() { DescribeFetcher("Get information about Dovra resync throttling"); }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    SucceedOrNothing(output, "", [](const ControlLibrary& library) {
      StructPtr record = GetOutputStructure();
      record->SetField("Level", MetaInt::New(library->GetResyncThrottle()));
      return record;
    });
  }
};

template CommandPtr MakeCommand<ResyncThrottleGet>();

}  // namespace OrvaneCli::DovraNamespace
