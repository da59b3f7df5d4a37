#include <algorithm>

#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

using HostCtl::Dovra::DovraDiskInfo;
using HostCtl::Dovra::DovraDiskLun;
using HostCtl::Dovra::DovraInfo;
using HostCtl::Dovra::Uuid;

namespace {

/// Returns the UUIDs of the local disks with that device name or UUID. At most one of the two is
/// given; an empty string matches any disk.
std::vector<std::string> FindLocalDisks(const DovraInfo::DiskLuns& luns, const std::string& device,
                                        const std::string& uuid) {
  std::optional<Uuid> wanted;
  // Compared as values, so that another spelling of the same UUID finds its disk.
  if (!uuid.empty()) wanted = DovraUtil::StringToDovraUuid(uuid);
  const auto matches = [&](const DovraDiskLun& lun) {
    if (!device.empty()) return lun.GetDeviceName() == device;
    return !wanted || lun.GetUuid() == *wanted;
  };
  std::vector<std::string> uuids;
  for (const auto& lun : luns) {
    if (lun && matches(*lun)) uuids.push_back(DovraUtil::DovraUuidToString(lun->GetUuid()));
  }
  return uuids;
}

}  // namespace

class StorageList final : public ListCommand<StorageList> {
 public:
  static constexpr Record kRecord = {
      .name = "DovraStorageList",
      .fields =
          {
              {"Device", MetaType::kString},
              {"Display Name", MetaType::kString},
              {"Is SSD", MetaType::kBool},
              {"DOVRA UUID", MetaType::kString},
              {"DOVRA Disk Group UUID", MetaType::kString},
              {"DOVRA Disk Group Name", MetaType::kString},
              {"Used by this host", MetaType::kBool},
              {"In Tavdir", MetaType::kBool},
              {"On-disk format version", MetaType::kString},
              {"Deduplication", MetaType::kBool},
              {"Compression", MetaType::kBool},
              {"Checksum", MetaType::kString},
              {"Checksum OK", MetaType::kBool},
              {"Is Capacity Tier", MetaType::kBool},
              {"Encryption", MetaType::kBool},
              {"DiskKeyLoaded", MetaType::kBool},
              {"Is Mounted", MetaType::kBool},
          },
      .caption = "%Device%",
      .separator = ",",
  };

  StorageList() { DescribeFetcher("List Dovra storage configuration."); }

  /// Returns the product's label for the number of an on-disk format.
  static std::shared_ptr<MetaString> MarshalVersion(int version) {
    switch (version) {
      case 3:
        return MetaString::New("2.5");
      case 4:
        return MetaString::New("3");
      case 0:
        return MetaString::New("1");
      default:
        return MetaString::New(std::to_string(version));
    }
  }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({
        {"device", "d", ParameterType::kString, Need::kOptional,
         "Filter the output of this command to only show a single device with specified device "
         "name."},
        {"uuid", "u", ParameterType::kString, Need::kOptional,
         "Filter the output of this command to only show a single device with specified uuid."},
    });
  }

  static StructPtr MakeRow(const DovraDiskInfo& disk) {
    StructPtr row = GetOutputStructure();
    const auto name = MetaString::New(disk.deviceName);
    row->SetField("Device", name);
    row->SetField("Display Name", name);  // a disk has no other name
    row->SetField("Is SSD", MetaBool::New(disk.isFlash));
    row->SetField("DOVRA UUID", disk.uuid);
    row->SetField("DOVRA Disk Group UUID", disk.diskGroupUuid);
    row->SetField("DOVRA Disk Group Name", disk.diskGroupName);
    row->SetField("Used by this host", MetaBool::New(disk.usedByThisHost));
    row->SetField("In Tavdir", MetaBool::New(disk.inTavdir));
    row->SetField("On-disk format version", MarshalVersion(disk.formatVersion));
    row->SetField("Deduplication", MetaBool::New(disk.deduplication));
    row->SetField("Compression", MetaBool::New(disk.deduplication));  // enabled together
    row->SetField("Checksum", disk.checksum);
    row->SetField("Checksum OK", MetaBool::New(disk.checksumOk));
    row->SetField("Is Capacity Tier", MetaBool::New(disk.isCapacityTier));
    row->SetField("Encryption", MetaBool::New(disk.encryption));
    row->SetField("DiskKeyLoaded", MetaBool::New(disk.diskKeyLoaded));
    row->SetField("Is Mounted", MetaBool::New(disk.isMounted));
    return row;
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    const std::string device = input->GetParameter("device");
    const std::string uuid = input->GetParameter("uuid");
    if (!device.empty() && !uuid.empty()) {
      return output->AddErrorMessage("Only one of --device or --uuid can be specified.");
    }
    const ListPtr list = MakeList();
    try {
      DovraInfo::DiskLuns luns;
      DovraInfo::GetDovraDisks(luns);
      std::vector<std::string> uuids = FindLocalDisks(luns, device, uuid);

      const ControlLibrary library;
      std::vector<Uuid> serviceDisks;
      library->GetDiskUuids(serviceDisks);
      if (device.empty() && uuid.empty()) {
        uuids.reserve(uuids.size() + serviceDisks.size());
        for (const Uuid& disk : serviceDisks) uuids.push_back(DovraUtil::DovraUuidToString(disk));
      }
      // The service knows local disks too; each is listed once.
      std::ranges::stable_sort(uuids);  // fast when both lists are sorted already
      // Not std::ranges::unique, which clang 14 does not compile.
      uuids.erase(std::unique(uuids.begin(), uuids.end()), uuids.end());

      list->Reserve(uuids.size());
      for (const std::string& text : uuids) {
        DovraDiskInfo disk;
        library->GetDiskInfo(DovraUtil::StringToDovraUuid(text), luns, disk);
        list->Add(MakeRow(disk));
      }
      if (uuids.empty() && !device.empty()) {
        output->AddErrorMessage("Unable to find device with name: " + device);
      } else if (uuids.empty() && !uuid.empty()) {
        output->AddErrorMessage("Unable to find device with uuid: " + uuid);
      }
    } catch (const DovraCtlException& failure) {
      Report(output, failure, "Unable to list devices: ");
    }
    output->SetRootObject(list);  // after a failure, the rows completed by then
  }
};

template CommandPtr MakeCommand<StorageList>();

}  // namespace OrvaneCli::DovraNamespace
