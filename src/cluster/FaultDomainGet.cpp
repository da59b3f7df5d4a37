#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

class FaultDomainGet final : public RecordCommand<FaultDomainGet> {
 public:
  static constexpr Record kRecord = {
      .name = "FaultDomain",
      .fields =
          {
              {"faultDomainName", MetaType::kString},
              {"faultDomainId", MetaType::kString},
          },
  };

  FaultDomainGet() { DescribeFetcher("Get the fault domain name for this host."); }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    const StructPtr record = GetOutputStructure();
    try {
      const ControlLibrary library;
      record->SetField("faultDomainName", library->GetFaultDomainName());
      if (library->GetClusterConfig().enabled) {  // a fault domain has an id only in a cluster
        record->SetField("faultDomainId", DovraUtil::GetFaultDomainId());
      }
      output->SetRootObject(record);
    } catch (const DovraCtlException& failure) {
      Report(output, failure, "Unable to get fault domain name: ");
    }
  }
};

template CommandPtr MakeCommand<FaultDomainGet>();

}  // namespace OrvaneCli::DovraNamespace
