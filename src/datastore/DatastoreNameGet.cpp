#include "datastore/DatastoreCommands.h"
#include "datastore/DatastoreTexts.h"
#include "frame/ControlLibrary.h"

namespace OrvaneCli::DovraNamespace {

namespace {

constexpr Field kFields[] = {{"Name", MetaType::kString}};

}  // namespace

const Record DatastoreNameGet::kRecord = {"DatastoreName", kFields};

DatastoreNameGet::DatastoreNameGet() {
  DescribeFetcher("Get Dovra datastore name.");
  SetDefaultOutputFormatter("simple");
}

InputSpecPtr DatastoreNameGet::GetInputSpecInternal() {
  return MakeInputSpec({
      {"uuid", "u", ParameterType::kString, Need::kOptional, kNamedDatastoreUuidDescription},
  });
}

void DatastoreNameGet::ExecuteInternal(const InputPtr& input, const OutputPtr& output) {
  try {
    const ControlLibrary library;
    const StructPtr record = GetOutputStructure();
    record->SetField("Name", library->GetDatastoreName(input->GetParameter("uuid")));
    output->SetRootObject(record);
  } catch (const DovraCtlException& failure) {
    Report(output, "Unable to get Dovra datastore name: ", failure);
  }
}

}  // namespace OrvaneCli::DovraNamespace
