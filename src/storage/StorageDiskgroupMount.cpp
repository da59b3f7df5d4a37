#include "frame/Command.h"
#include "storage/DiskOptions.h"

namespace OrvaneCli::DovraNamespace {

class StorageDiskgroupMount final : public SuccessCommand<StorageDiskgroupMount> {
 public:
  StorageDiskgroupMount() { DescribeOperation("Mount a Dovra disk or disk group."); }

 private:
  InputSpecPtr GetInputSpecInternal() override {
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

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    if (NamesSeveralDisks(input)) return output->AddErrorMessage(kOnlyOneDiskMessage);
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
        return output->SetRootObject(MetaBool::New(false));  // unlike every other failure here
      }
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure, "Unable to mount: ");
    }
  }
};

template CommandPtr MakeCommand<StorageDiskgroupMount>();

}  // namespace OrvaneCli::DovraNamespace
