#include "frame/Command.h"
#include "storage/DiskOptions.h"

namespace OrvaneCli::DovraNamespace {

class StorageDiskgroupUmount final : public SuccessCommand<StorageDiskgroupUmount> {
 public:
  StorageDiskgroupUmount() { DescribeOperation("Unmount Dovra disk or disk group."); }

 private:
  InputSpecPtr GetInputSpecInternal() override {
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

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    if (NamesSeveralDisks(input)) return output->AddErrorMessage(kOnlyOneDiskMessage);
    try {
      const ControlLibrary library;
      if (input->HasParameter("ssd")) {
        library->UnmountDiskGroup(input->GetParameter("ssd"));
      } else if (input->HasParameter("disk")) {
        library->UnmountDisk(input->GetParameter("disk"));
      } else if (input->HasParameter("uuid")) {
        library->UnmountDiskByUuid(input->GetParameter("uuid"));
      } else {
        return output->AddErrorMessage("Need one of --disk, --ssd or --uuid.");
      }
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure, "Unable to unmount: ");
    }
  }
};

template CommandPtr MakeCommand<StorageDiskgroupUmount>();

}  // namespace OrvaneCli::DovraNamespace
