#include "datastore/DatastoreTexts.h"
#include "frame/Command.h"
#include "frame/Text.h"

namespace OrvaneCli::DovraNamespace {

using HostCtl::Dovra::DovraDatastore;

class DatastoreAdd final : public SuccessCommand<DatastoreAdd> {
 public:
  DatastoreAdd() {
    DescribeOperation(
        "Add a new datastore to the Dovra cluster. This operation is only allowed if Dovra is "
        "enabled on the host. In general, add should be done at cluster level. Across a Dovra "
        "cluster Dovra datastores should be in sync.");
  }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({
        {"uuid", "u", ParameterType::kString, Need::kOptional,
         "UUID of the new datastore to be added, in the form "
         "\"nnnnnnnn-nnnn-nnnn-nnnn-nnnnnnnnnnnn\" where n are hexadecimal digits. If not "
         "specified, a new UUID will be generated."},
        {"name", "n", ParameterType::kString, Need::kRequired,
         "User friendly name of the datastore to be added. It must be unique among all existing "
         "Dovra datastores."},
    });
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    std::string uuid = input->GetParameter("uuid");
    const std::string name = input->GetParameter("name");
    try {
      const ControlLibrary library;
      if (uuid.empty()) uuid = GenerateUuid();
      if (uuid.empty()) return output->AddErrorMessage(kNoUuidMessage);
      library->AddDatastore(DovraDatastore(uuid, name, false));
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure, kUnableToAddDatastore);
    }
  }
};

template CommandPtr MakeCommand<DatastoreAdd>();

}  // namespace OrvaneCli::DovraNamespace
