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
    const StructPtr record = GetOutputStructure();
    try {
      const ControlLibrary library;
      record->SetField("Level", MetaInt::New(library->GetResyncThrottle()));
      output->SetRootObject(record);
    } catch (const DovraCtlException& failure) {
      Report(output, failure);
    }
  }
};

template CommandPtr MakeCommand<ResyncThrottleGet>();

}  // namespace OrvaneCli::DovraNamespace
