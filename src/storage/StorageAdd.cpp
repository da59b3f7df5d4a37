#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

class StorageAdd final : public SuccessCommand<StorageAdd> {
 public:
  StorageAdd() { DescribeOperation("Add physical disk for Dovra usage."); }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({
        {"ssd", "s", ParameterType::kString, Need::kRequired,
         "Specify ssd to add for use by Dovra. Expects an empty ssd with no partitions in which "
         "case the ssd will be partitioned and formatted. Otherwise this operation will fail. If "
         "an ssd which is already added for use by Dovra, is provided along with '-d/--disks', "
         "then the disk mentioned with '-d' will be added to the existing diskgroup created under "
         "this ssd and in which case, the ssd won't be partitioned and formatted. The command "
         "expects the device name for the disk to be provided, e.g.: mpx.xhba2:C0:T1:L0"},
        {"disks", "d", ParameterType::kStringList, Need::kRequired,
         "Specify hdds to add for use by Dovra. Expects an empty disk with no partitions in which "
         "case the disk will be partitioned and formatted. Otherwise this operation will fail. The "
         "command expects the device name for the disk to be provided, e.g.: mpx.xhba2:C0:T1:L0. "
         "Multiple hdds can be provided using format -d hdd1 -d hdd2 -d hdd3"},
    });
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    const std::string ssd = input->GetParameter("ssd");
    std::vector<std::string> disks;
    input->GetParameterList("disks", disks);
    try {
      const ControlLibrary library;
      library->AddDisks(ssd, disks);
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure, "Unable to add device: ");
    }
  }
};

template CommandPtr MakeCommand<StorageAdd>();

}  // namespace OrvaneCli::DovraNamespace
