#include "frame/Command.h"
#include "storage/DiskOptions.h"

namespace OrvaneCli::DovraNamespace {

namespace {

/// Returns the control library's spelling of the mode, given either spelling; nothing when there is
/// no such mode.
std::optional<std::string> ParseEvacuationMode(const std::string& given) {
  constexpr std::pair<const char*, const char*> kModes[] = {
      {"ensureObjectAccessibility", "EnsureObjectAccessibility"},
      {"evacuateAllData", "EvacuateAllData"},
      {"noAction", "NoAction"},
  };
  for (const auto& [typed, canonical] : kModes) {
    if (given == typed || given == canonical) return canonical;
  }
  return std::nullopt;
}

}  // namespace

class StorageRemove final : public SuccessCommand<StorageRemove> {
 public:
  StorageRemove() { DescribeOperation("Remove physical disks from Dovra disk groups."); }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({
        {"disk", "d", ParameterType::kString, Need::kOptional,
         "Specify individual hdd to remove from Dovra usage.e.g.: mpx.xhba2:C0:T1:L0"},
        {"ssd", "s", ParameterType::kString, Need::kOptional,
         "Specify a disk group's fronting ssd to remove the ssd and each backing hdd from Dovra "
         "usage.e.g.: mpx.xhba2:C0:T1:L0"},
        {"uuid", "u", ParameterType::kString, Need::kOptional,
         "Specify UUID of Dovra disk.e.g.: 52afa1de-4240-d5d6-17f9-8af1ec8509e5"},
        {"evacuation-mode", "m", ParameterType::kString, Need::kOptional,
         "Action the Dovra service must take before the host can enter maintenance mode (default "
         "noAction). Allowed values are:\n"
         "    ensureObjectAccessibility: Evacuate data from the disk to ensure object "
         "accessibility in the Dovra cluster, before removing the disk.\n"
         "    evacuateAllData: Evacuate all data from the disk before removing it.\n"
         "    noAction: Do not move Dovra data out of the disk before removing it."},
    });
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    try {
      const ControlLibrary library;
      if (NamesSeveralDisks(input)) {
        return output->AddErrorMessage(
            "At most one of --disk or --ssd or --uuid can be specified.");
      }
      std::string mode;  // empty: the control library's default
      if (const auto given = Given<std::string>(input, "evacuation-mode")) {
        const auto known = ParseEvacuationMode(*given);
        if (!known) {
          return output->AddErrorMessage(
              "Expected a single value from the set [noAction, ensureObjectAccessibility, "
              "evacuateAllData] got '" +
              *given + "'");
        }
        mode = *known;
      }
      if (input->HasParameter("disk")) {
        library->RemoveDisk(input->GetParameter("disk"), mode);
      } else if (input->HasParameter("ssd")) {
        library->RemoveDiskGroup(input->GetParameter("ssd"), mode);
      } else if (input->HasParameter("uuid")) {
        library->RemoveDiskByUuid(input->GetParameter("uuid"), mode);
      } else {
        return output->AddErrorMessage("No option provided");
      }
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure, "Unable to remove device: ");
    }
  }
};

template CommandPtr MakeCommand<StorageRemove>();

}  // namespace OrvaneCli::DovraNamespace
