#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

class ClusterPreferredFaultDomainGet final : public RecordCommand<ClusterPreferredFaultDomainGet> {
 public:
  static constexpr Record kRecord = {
      .name = "PreferredFaultDomain",
      .fields =
          {
              {"Preferred Fault Domain Name", MetaType::kString},
              {"Preferred Fault Domain Id", MetaType::kString},
          },
  };

  ClusterPreferredFaultDomainGet() {
    DescribeFetcher("Get the preferred fault domain for a stretched cluster.");
  }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    try {
      const ControlLibrary library;
      if (!library->GetClusterConfig().enabled || !DovraUtil::IsInStretchedCluster()) {
        return output->AddErrorMessage(
            "Cannot get preferred fault domain if host is not in a stretched cluster.");
      }
      std::string id, name;
      DovraUtil::GetPreferredFaultDomainInfo(id, name);
      const StructPtr record = GetOutputStructure();
      record->SetField("Preferred Fault Domain Name", name);
      record->SetField("Preferred Fault Domain Id", id);
      output->SetRootObject(record);
    } catch (const DovraCtlException& failure) {
      Report(output, failure, "Unable to get preferred fault domain name: ");
    }
  }
};

template CommandPtr MakeCommand<ClusterPreferredFaultDomainGet>();

}  // namespace OrvaneCli::DovraNamespace
