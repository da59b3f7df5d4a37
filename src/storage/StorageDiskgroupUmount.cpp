#include "frame/ControlLibrary.h"
#include "storage/DiskOptions.h"
#include "storage/StorageCommands.h"

namespace OrvaneCli::DovraNamespace {

StorageDiskgroupUmount::StorageDiskgroupUmount() {
  DescribeOperation("Unmount Dovra disk or disk group.");
}

InputSpecPtr StorageDiskgroupUmount::GetInputSpecInternal() {
  return MakeInputSpec({
      {"ssd", "s", ParameterType::kString, Need::kOptional,
       "Specify a disk group's fronting ssd to unmount the ssd and each backing hdd from Dovra "
       "usage.e.g.: mpx.xhba2:C0:T1:L0"},
      {"disk", "d", ParameterType::kString, Need::kOptional,
       "Specify the hdd to unmount from Dovra usage.e.g.: mpx.xhba0:C0:T1:L0"},
      {"uuid", "u", ParameterType::kString, Need::kOptional,
       "Specify a Dovra UUID of the disk or fronting ssd to unmount for use by Dovra.e.g.: "
       "5291022a-ad03-df90-dd0f-b9f980cc005e"},
  });
}

void StorageDiskgroupUmount::ExecuteInternal(const InputPtr& input, const OutputPtr& output) {
  if (NamesSeveralDisks(input)) {
    output->AddErrorMessage(kOnlyOneDiskMessage);
    return;
  }
  try {
    const ControlLibrary library;
    if (input->HasParameter("ssd")) {
      library->UnmountDiskGroup(input->GetParameter("ssd"));
    } else if (input->HasParameter("disk")) {
      library->UnmountDisk(input->GetParameter("disk"));
    } else if (input->HasParameter("uuid")) {
      library->UnmountDiskByUuid(input->GetParameter("uuid"));
    } else {
      output->AddErrorMessage("Need one of --disk, --ssd or --uuid.");
      return;
    }
    output->SetRootObject(MetaBool::New(true));
  } catch (const DovraCtlException& failure) {
    Report(output, "Unable to unmount: ", failure);
  }
}

}  // namespace OrvaneCli::DovraNamespace
