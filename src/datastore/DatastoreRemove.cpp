#include "datastore/DatastoreCommands.h"
#include "frame/ControlLibrary.h"

namespace OrvaneCli::DovraNamespace {

DatastoreRemove::DatastoreRemove() {
  DescribeOperation(
      "Remove a datastore from the Dovra cluster. This operation is only allowed if Dovra is "
      "enabled on the host. In general, remove should be done at cluster level. Across a Dovra "
      "cluster Dovra datastores should be in sync.");
}

InputSpecPtr DatastoreRemove::GetInputSpecInternal() {
  return MakeInputSpec({
      {"uuid", "u", ParameterType::kString, Need::kRequired,
       "UUID of the datastore to be removed, in the form "
       "\"nnnnnnnn-nnnn-nnnn-nnnn-nnnnnnnnnnnn\" where n are hexadecimal digits."},
  });
}

void DatastoreRemove::ExecuteInternal(const InputPtr& input, const OutputPtr& output) {
  SucceedOrNothing(output, "Unable to remove datastore: ", [&] {
    const ControlLibrary library;
    library->RemoveDatastore(input->GetParameter("uuid"), true);
  });
}

}  // namespace OrvaneCli::DovraNamespace
