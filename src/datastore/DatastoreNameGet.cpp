#include "datastore/DatastoreTexts.h"
#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

class DatastoreNameGet final : public RecordCommand<DatastoreNameGet> {
 public:
  static constexpr Record kRecord = {
      .name = "DatastoreName",
      .fields = {{"Name", MetaType::kString}},
  };

  DatastoreNameGet() { DescribeFetcher("Get Dovra datastore name."); }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({
        {"uuid", "u", ParameterType::kString, Need::kOptional, kNamedDatastoreUuidDescription},
    });
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    const std::string uuid = input->GetParameter("uuid");
    const StructPtr record = GetOutputStructure();
    try {
      const ControlLibrary library;
      record->SetField("Name", library->GetDatastoreName(uuid));
      output->SetRootObject(record);
    } catch (const DovraCtlException& failure) {
      Report(output, failure, "Unable to get Dovra datastore name: ");
    }
  }
};

template CommandPtr MakeCommand<DatastoreNameGet>();

}  // namespace OrvaneCli::DovraNamespace
