// Disks and disk groups.

#include "corectl/Clusters.h"
#include "corectl/Disks.h"
#include "corectl/info/LabInfo.h"
#include "platform/corectl/DovraUtil.h"

namespace Lab {

using CoreCtl::Dovra::DovraUtil;
using HostCtl::Dovra::DovraDiskInfo;
using HostCtl::Dovra::Uuid;

namespace {

class LabLun final : public HostCtl::Dovra::DovraDiskLun {
 public:
  LabLun(const Uuid& uuid, std::string device) : uuid_(uuid), device_(std::move(device)) {}
  Uuid GetUuid() const override { return uuid_; }
  std::string GetDeviceName() const override { return device_; }

 private:
  Uuid uuid_;
  std::string device_;
};

}  // namespace

}  // namespace Lab

void HostCtl::Dovra::DovraInfo::GetDovraDisks(DiskLuns& luns) {
  using namespace Lab;
  LabHost::Current().Read("GetDovraDisks", [&](Store& store, const HostRow& host) {
    luns.clear();
    for (DiskRow& disk : store.ListDisks(host.id)) {
      if (!disk.IsClaimed()) continue;
      luns.push_back(std::make_shared<LabLun>(DovraUtil::StringToDovraUuid(disk.uuid),
                                              std::move(disk.device)));
    }
  });
}

namespace Lab {

void LabInfo::GetDiskUuids(std::vector<Uuid>& disks) {
  host_.Read("GetDiskUuids", [&](Store& store, const HostRow& host) {
    disks.clear();
    const auto member = FindRunningMember(store, host);
    if (!member) return;
    for (const std::string& uuid : store.ListClusterDiskUuids(member->cluster)) {
      disks.push_back(DovraUtil::StringToDovraUuid(uuid));
    }
  });
}

// A listing asks for disks one by one, thousands of them. They are read together, on the first
// question, and so all rows of the listing show the same moment.
const LabInfo::DiskView& LabInfo::GetDiskView() {
  if (diskView_) return *diskView_;
  diskView_ = host_.Read("", [](Store& store, const HostRow& host) {
    const auto member = FindRunningMember(store, host);
    DiskView view{host.id, member.has_value(), {}};
    for (DiskRow& disk : store.ListKnownDisks(host.id, member ? member->cluster : "")) {
      view.disks.emplace(DovraUtil::StringToDovraUuid(disk.uuid), std::move(disk));
    }
    return view;
  });
  return *diskView_;
}

void LabInfo::GetDiskInfo(const Uuid& uuid, const DiskLuns&, DovraDiskInfo& info) {
  host_.FailIfTold("GetDiskInfo");
  const DiskView& view = GetDiskView();
  const auto known = view.disks.find(uuid);
  if (known == view.disks.end()) {
    Refuse("There is no disk with UUID " + DovraUtil::DovraUuidToString(uuid) + ".");
  }
  const DiskRow& disk = known->second;
  const bool isOwn = disk.host == view.host;
  info.deviceName = isOwn ? disk.device : "Unknown";  // other hosts' devices are their own
  info.isFlash = disk.flash;
  info.uuid = disk.uuid;
  info.diskGroupUuid = disk.group;
  info.diskGroupName = isOwn ? disk.groupName : "Unknown";
  info.usedByThisHost = isOwn;
  info.inTavdir = disk.mounted && view.hostRuns;
  info.formatVersion = static_cast<std::int32_t>(disk.formatVersion);
  info.deduplication = disk.deduplication;
  info.checksum = disk.checksum;
  info.checksumOk = disk.checksumOk;
  info.isCapacityTier = !disk.IsCache();
  info.encryption = disk.encryption;
  info.diskKeyLoaded = disk.keyLoaded;
  info.isMounted = disk.mounted;
}

void LabInfo::AddDisks(const std::string& ssd, const std::vector<std::string>& disks) {
  host_.Change("AddDisks",
               [&](Store& store, const HostRow& host) { Lab::AddDisks(store, host, ssd, disks); });
}

void LabInfo::MountDiskGroup(const std::string& ssd) {
  host_.Change("MountDiskGroup", [&](Store& store, const HostRow& host) {
    SetMounted(store, host, RequireGroupDisk(store, host, ssd), true);
  });
}

void LabInfo::MountDiskByUuid(const std::string& uuid) {
  host_.Change("MountDiskByUuid", [&](Store& store, const HostRow& host) {
    SetMounted(store, host, RequireDiskByUuid(store, host, uuid), true);
  });
}

void LabInfo::MountDisk(const std::string& disk) {
  host_.Change("MountDisk", [&](Store& store, const HostRow& host) {
    SetMounted(store, host, RequireClaimedDisk(store, host, disk), true);
  });
}

void LabInfo::UnmountDiskGroup(const std::string& ssd) {
  host_.Change("UnmountDiskGroup", [&](Store& store, const HostRow& host) {
    SetMounted(store, host, RequireGroupDisk(store, host, ssd), false);
  });
}

void LabInfo::UnmountDisk(const std::string& disk) {
  host_.Change("UnmountDisk", [&](Store& store, const HostRow& host) {
    SetMounted(store, host, RequireClaimedDisk(store, host, disk), false);
  });
}

void LabInfo::UnmountDiskByUuid(const std::string& uuid) {
  host_.Change("UnmountDiskByUuid", [&](Store& store, const HostRow& host) {
    SetMounted(store, host, RequireDiskByUuid(store, host, uuid), false);
  });
}

void LabInfo::RemoveDisk(const std::string& disk, const std::string& evacuationMode) {
  host_.Change("RemoveDisk", [&](Store& store, const HostRow& host) {
    CheckEvacuationMode(evacuationMode);
    RemoveCapacityDisk(store, host, RequireClaimedDisk(store, host, disk));
  });
}

void LabInfo::RemoveDiskGroup(const std::string& ssd, const std::string& evacuationMode) {
  host_.Change("RemoveDiskGroup", [&](Store& store, const HostRow& host) {
    CheckEvacuationMode(evacuationMode);
    RemoveGroup(store, host, RequireGroupDisk(store, host, ssd));
  });
}

void LabInfo::RemoveDiskByUuid(const std::string& uuid, const std::string& evacuationMode) {
  host_.Change("RemoveDiskByUuid", [&](Store& store, const HostRow& host) {
    CheckEvacuationMode(evacuationMode);
    RemoveDiskOrGroup(store, host, RequireDiskByUuid(store, host, uuid));
  });
}

void LabInfo::SetAutoClaimMode(bool enabled) {
  host_.Change("SetAutoClaimMode", [&](Store& store, HostRow& host) {
    host.autoClaim = enabled;
    store.SaveHost(host);
  });
}

bool LabInfo::GetAutoClaimMode() {
  return host_.Read("GetAutoClaimMode", [](Store&, const HostRow& host) { return host.autoClaim; });
}

void LabInfo::AddCapacityFlashTag(const std::string& disk) {
  host_.Change("AddCapacityFlashTag",
               [&](Store& store, const HostRow& host) { SetCapacityTag(store, host, disk, true); });
}

void LabInfo::RemoveCapacityFlashTag(const std::string& disk) {
  host_.Change("RemoveCapacityFlashTag", [&](Store& store, const HostRow& host) {
    SetCapacityTag(store, host, disk, false);
  });
}

}  // namespace Lab
