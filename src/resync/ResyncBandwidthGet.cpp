#include "frame/ControlLibrary.h"
#include "resync/ResyncCommands.h"

namespace OrvaneCli::DovraNamespace {

namespace {

constexpr Field kFields[] = {{"Rate", MetaType::kInt}};

}  // namespace

const Record ResyncBandwidthGet::kRecord = {"ResyncBandwidth", kFields};

ResyncBandwidthGet::ResyncBandwidthGet() {
  DescribeFetcher(
      "Get information about Dovra resync bandwidth in Mbps for the disk group with the heaviest "
      "resync workload.");
  SetDefaultOutputFormatter("simple");
  SetDefaultOutputParameter("units:ResyncBandwidth.Rate", "Mbps");
}

void ResyncBandwidthGet::ExecuteInternal(const InputPtr&, const OutputPtr& output) {
  const StructPtr record = GetOutputStructure();
  try {
    const ControlLibrary library;
    record->SetField("Rate", MetaInt::New(library->GetResyncBandwidth()));
    output->SetRootObject(record);
  } catch (const DovraCtlException& failure) {
    Report(output, "", failure);
  }
}

}  // namespace OrvaneCli::DovraNamespace
