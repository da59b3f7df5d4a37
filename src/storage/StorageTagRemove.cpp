#include "frame/Command.h"
#include "storage/DiskOptions.h"

namespace OrvaneCli::DovraNamespace {

class StorageTagRemove final : public SuccessCommand<StorageTagRemove> {
 public:
  StorageTagRemove() { DescribeOperation("Remove a Dovra storage tag."); }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeTagInputSpec("Tag to be removed from disk. Supported tags are %ENUM%.",
                            "Name of the disk from which the tag should be removed.");
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    try {
      const ControlLibrary library;
      library->RemoveCapacityFlashTag(input->GetParameter("disk"));
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure, "Unable to remove tag for disk: ");
    }
  }
};

template CommandPtr MakeCommand<StorageTagRemove>();

}  // namespace OrvaneCli::DovraNamespace
