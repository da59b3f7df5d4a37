#include "frame/ControlLibrary.h"
#include "storage/DiskOptions.h"
#include "storage/StorageCommands.h"

namespace OrvaneCli::DovraNamespace {

StorageTagAdd::StorageTagAdd() {
  DescribeOperation("Add a Dovra storage tag.");
}

InputSpecPtr StorageTagAdd::GetInputSpecInternal() {
  return MakeTagInputSpec("Tag to be added to disk. Supported tags are %ENUM%.",
                          "Name of the disk to which the tag should be added.");
}

// There is but one tag, and the framework has refused any other.
void StorageTagAdd::ExecuteInternal(const InputPtr& input, const OutputPtr& output) {
  SucceedOrNothing(output, "Unable to add tag to disk: ", [&] {
    const ControlLibrary library;
    library->AddCapacityFlashTag(input->GetParameter("disk"));
  });
}

}  // namespace OrvaneCli::DovraNamespace
