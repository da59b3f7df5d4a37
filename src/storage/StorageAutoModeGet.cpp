#include "frame/ControlLibrary.h"
#include "storage/StorageCommands.h"

namespace OrvaneCli::DovraNamespace {

namespace {

constexpr Field kFields[] = {{"Enabled", MetaType::kBool}};

}  // namespace

const Record StorageAutoModeGet::kRecord = {"AutoMode", kFields};

StorageAutoModeGet::StorageAutoModeGet() {
  DescribeFetcher(" Get status of storage auto claim mode.");
  SetDefaultOutputFormatter("simple");
}

void StorageAutoModeGet::ExecuteInternal(const InputPtr&, const OutputPtr& output) {
  const StructPtr record = GetOutputStructure();
  try {
    const ControlLibrary library;
    record->SetField("Enabled", MetaBool::New(library->GetAutoClaimMode()));
    output->SetRootObject(record);
  } catch (const DovraCtlException& failure) {
    Report(output, "Unable to get Dovra storage auto claim mode: ", failure);
  }
}

}  // namespace OrvaneCli::DovraNamespace
