#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

class DatastoreClear final : public SuccessCommand<DatastoreClear> {
 public:
  DatastoreClear() {
    DescribeOperation(
        "Remove all but the default datastore from the Dovra cluster. This operation is only "
        "allowed if Dovra is enabled on the host. In general, add should be done at cluster level. "
        "Across a Dovra cluster Dovra datastores should be in sync.");
  }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    try {
      const ControlLibrary library;
      library->ClearDatastores();
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure, "Unable to clear datastore: ");
    }
  }
};

template CommandPtr MakeCommand<DatastoreClear>();

}  // namespace OrvaneCli::DovraNamespace
