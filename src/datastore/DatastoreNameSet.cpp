#include "datastore/DatastoreTexts.h"
#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

class DatastoreNameSet final : public SuccessCommand<DatastoreNameSet> {
 public:
  DatastoreNameSet() {
    DescribeOperation(
        "Configure Dovra datastore name. In general, rename should always be done at cluster "
        "level. Across a Dovra cluster Dovra datastore name should be in sync.");
  }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({
        {"uuid", "u", ParameterType::kString, Need::kOptional, kNamedDatastoreUuidDescription},
        {"newname", "n", ParameterType::kString, Need::kRequired, "New name of the datastore."},
    });
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    const std::string uuid = input->GetParameter("uuid");
    const std::string name = input->GetParameter("newname");
    try {
      const ControlLibrary library;
      library->SetDatastoreName(uuid, name);
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure, "Unable to set Dovra datastore name: ");
    }
  }
};

template CommandPtr MakeCommand<DatastoreNameSet>();

}  // namespace OrvaneCli::DovraNamespace
