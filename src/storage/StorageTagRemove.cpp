#include "frame/ControlLibrary.h"
#include "storage/DiskOptions.h"
#include "storage/StorageCommands.h"

namespace OrvaneCli::DovraNamespace {

StorageTagRemove::StorageTagRemove() {
  DescribeOperation("Remove a Dovra storage tag.");
}

InputSpecPtr StorageTagRemove::GetInputSpecInternal() {
  return MakeTagInputSpec("Tag to be removed from disk. Supported tags are %ENUM%.",
                          "Name of the disk from which the tag should be removed.");
}

// There is but one tag, and the framework has refused any other.
void StorageTagRemove::ExecuteInternal(const InputPtr& input, const OutputPtr& output) {
  SucceedOrNothing(output, "Unable to remove tag for disk: ", [&] {
    const ControlLibrary library;
    library->RemoveCapacityFlashTag(input->GetParameter("disk"));
  });
}

}  // namespace OrvaneCli::DovraNamespace
