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
    SucceedOrNothing(output, "Unable to clear datastore: ", [](const ControlLibrary& library) {
      library->ClearDatastores();
    });
  }
};

template CommandPtr MakeCommand<DatastoreClear>();

}  // namespace OrvaneCli::DovraNamespace
