#include "frame/ControlLibrary.h"
#include "resync/ResyncCommands.h"

namespace OrvaneCli::DovraNamespace {

namespace {

constexpr Field kFields[] = {{"Level", MetaType::kInt}};

}  // namespace

const Record ResyncThrottleGet::kRecord = {"ResyncThrottle", kFields};

ResyncThrottleGet::ResyncThrottleGet() {
  DescribeFetcher("Get information about Dovra resync throttling");
  SetDefaultOutputFormatter("simple");
  SetDefaultOutputParameter("units:ResyncThrottle.Level", "Mbps");
}

void ResyncThrottleGet::ExecuteInternal(const InputPtr&, const OutputPtr& output) {
  const StructPtr record = GetOutputStructure();
  try {
    const ControlLibrary library;
    record->SetField("Level", MetaInt::New(library->GetResyncThrottle()));
    output->SetRootObject(record);
  } catch (const DovraCtlException& failure) {
    Report(output, "", failure);
  }
}

}  // namespace OrvaneCli::DovraNamespace
