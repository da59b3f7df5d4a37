#include "frame/ControlLibrary.h"
#include "storage/DiskOptions.h"
#include "storage/StorageCommands.h"

namespace OrvaneCli::DovraNamespace {

StorageDiskgroupMount::StorageDiskgroupMount() {
  DescribeOperation("Mount a Dovra disk or disk group.");
}

InputSpecPtr StorageDiskgroupMount::GetInputSpecInternal() {
  return MakeInputSpec({
      {"ssd", "s", ParameterType::kString, Need::kOptional,
       "Specify a disk group's fronting ssd to mount the ssd and each backing hdd for use by "
       "Dovra.e.g.: mpx.xhba2:C0:T1:L0"},
      {"disk", "d", ParameterType::kString, Need::kOptional,
       "Specify the disk to mount for use by Dovra.e.g.: mpx.xhba0:C0:T1:L0"},
      {"uuid", "u", ParameterType::kString, Need::kOptional,
       "Specify a Dovra UUID of the disk or fronting ssd to mount for use by Dovra.e.g.: "
       "5291022a-ad03-df90-dd0f-b9f980cc005e"},
  });
}

void StorageDiskgroupMount::ExecuteInternal(const InputPtr& input, const OutputPtr& output) {
  if (NamesSeveralDisks(input)) {
    output->AddErrorMessage(kOnlyOneDiskMessage);
    return;
  }
  try {
    const ControlLibrary library;
    if (input->HasParameter("ssd")) {
      library->MountDiskGroup(input->GetParameter("ssd"));
    } else if (input->HasParameter("uuid")) {
      library->MountDiskByUuid(input->GetParameter("uuid"));
    } else if (input->HasParameter("disk")) {
      library->MountDisk(input->GetParameter("disk"));
    } else {
      output->AddErrorMessage("Either --ssd, --disk or --uuid is required");
      output->SetRootObject(MetaBool::New(false));  // the only failure here that leaves a result
      return;
    }
    output->SetRootObject(MetaBool::New(true));
  } catch (const DovraCtlException& failure) {
    Report(output, "Unable to mount: ", failure);
  }
}

}  // namespace OrvaneCli::DovraNamespace
