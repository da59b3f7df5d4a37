#include "datastore/DatastoreCommands.h"
#include "frame/ControlLibrary.h"

namespace OrvaneCli::DovraNamespace {

DatastoreClear::DatastoreClear() {
  DescribeOperation(
      "Remove all but the default datastore from the Dovra cluster. This operation is only allowed "
      "if Dovra is enabled on the host. In general, add should be done at cluster level. Across a "
      "Dovra cluster Dovra datastores should be in sync.");
}

void DatastoreClear::ExecuteInternal(const InputPtr&, const OutputPtr& output) {
  SucceedOrNothing(output, "Unable to clear datastore: ", [] {
    const ControlLibrary library;
    library->ClearDatastores();
  });
}

}  // namespace OrvaneCli::DovraNamespace
