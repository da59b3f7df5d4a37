#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

class DatastoreRemove final : public SuccessCommand<DatastoreRemove> {
 public:
  DatastoreRemove() {
    DescribeOperation(
        "Remove a datastore from the Dovra cluster. This operation is only allowed if Dovra is "
        "enabled on the host. In general, remove should be done at cluster level. Across a Dovra "
        "cluster Dovra datastores should be in sync.");
  }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({
        {"uuid", "u", ParameterType::kString, Need::kRequired,
         "UUID of the datastore to be removed, in the form "
         "\"nnnnnnnn-nnnn-nnnn-nnnn-nnnnnnnnnnnn\" where n are hexadecimal digits."},
    });
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    try {
      const ControlLibrary library;
      library->RemoveDatastore(input->GetParameter("uuid"), true);
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure, "Unable to remove datastore: ");
    }
  }
};

template CommandPtr MakeCommand<DatastoreRemove>();

}  // namespace OrvaneCli::DovraNamespace
