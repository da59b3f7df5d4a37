#include "datastore/DatastoreCommands.h"
#include "datastore/DatastoreTexts.h"
#include "frame/ControlLibrary.h"

namespace OrvaneCli::DovraNamespace {

DatastoreNameSet::DatastoreNameSet() {
  DescribeOperation(
      "Configure Dovra datastore name. In general, rename should always be done at cluster level. "
      "Across a Dovra cluster Dovra datastore name should be in sync.");
}

InputSpecPtr DatastoreNameSet::GetInputSpecInternal() {
  return MakeInputSpec({
      {"uuid", "u", ParameterType::kString, Need::kOptional, kNamedDatastoreUuidDescription},
      {"newname", "n", ParameterType::kString, Need::kRequired, "New name of the datastore."},
  });
}

void DatastoreNameSet::ExecuteInternal(const InputPtr& input, const OutputPtr& output) {
  SucceedOrNothing(output, "Unable to set Dovra datastore name: ", [&] {
    const ControlLibrary library;
    library->SetDatastoreName(input->GetParameter("uuid"), input->GetParameter("newname"));
  });
}

}  // namespace OrvaneCli::DovraNamespace
