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
    SucceedOrNothing(output,
                     "Unable to get Dovra datastore name: ", [&](const ControlLibrary& library) {
                       const std::string uuid = Given<std::string>(input, "uuid").value_or("");
                       StructPtr record = GetOutputStructure();
                       record->SetField("Name", library->GetDatastoreName(uuid));
                       return record;
                     });
  }
};

template CommandPtr MakeCommand<DatastoreNameGet>();

}  // namespace OrvaneCli::DovraNamespace
