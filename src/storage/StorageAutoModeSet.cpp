#include "frame/ControlLibrary.h"
#include "storage/StorageCommands.h"

namespace OrvaneCli::DovraNamespace {

StorageAutoModeSet::StorageAutoModeSet() {
  DescribeOperation("Configure storage auto claim mode");
}

InputSpecPtr StorageAutoModeSet::GetInputSpecInternal() {
  return MakeInputSpec({
      // Required: left out, it would read as false and turn the mode off.
      {"enabled", "", ParameterType::kBool, Need::kRequired,
       "Changing this value to true will result in enabling auto disk claim mode. Disks will be "
       "claimed by the Dovra service in next storage event, e.g.: adapter rescan and disk "
       "hot-plug. Set to false to disable storage auto claim mode."},
  });
}

void StorageAutoModeSet::ExecuteInternal(const InputPtr& input, const OutputPtr& output) {
  SucceedOrNothing(output, "Unable to set storage auto claim mode: ", [&] {
    const ControlLibrary library;
    library->SetAutoClaimMode(input->GetParameterBool("enabled"));
  });
}

}  // namespace OrvaneCli::DovraNamespace
