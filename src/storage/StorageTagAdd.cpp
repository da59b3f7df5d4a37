#include "frame/Command.h"
#include "storage/DiskOptions.h"

namespace OrvaneCli::DovraNamespace {

class StorageTagAdd final : public SuccessCommand<StorageTagAdd> {
 public:
  StorageTagAdd() { DescribeOperation("Add a Dovra storage tag."); }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeTagInputSpec("Tag to be added to disk. Supported tags are %ENUM%.",
                            "Name of the disk to which the tag should be added.");
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    try {
      const ControlLibrary library;
      library->AddCapacityFlashTag(input->GetParameter("disk"));
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure, "Unable to add tag to disk: ");
    }
  }
};

template CommandPtr MakeCommand<StorageTagAdd>();

}  // namespace OrvaneCli::DovraNamespace
