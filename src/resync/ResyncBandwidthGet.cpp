#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

class ResyncBandwidthGet final : public RecordCommand<ResyncBandwidthGet> {
 public:
  static constexpr Record kRecord = {
      .name = "ResyncBandwidth",
      .fields = {{"Rate", MetaType::kInt, "Mbps"}},
  };

  ResyncBandwidthGet() {
    DescribeFetcher(
        "Get information about Dovra resync bandwidth in Mbps for the disk group with the heaviest "
        "resync workload.");
  }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    const StructPtr record = GetOutputStructure();
    try {
      const ControlLibrary library;
      record->SetField("Rate", MetaInt::New(library->GetResyncBandwidth()));
      output->SetRootObject(record);
    } catch (const DovraCtlException& failure) {
      Report(output, failure);
    }
  }
};

template CommandPtr MakeCommand<ResyncBandwidthGet>();

}  // namespace OrvaneCli::DovraNamespace
