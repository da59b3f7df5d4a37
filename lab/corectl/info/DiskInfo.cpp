// Disks and disk groups.

#include <algorithm>

#include "baselibs/Strings.h"
#include "corectl/info/LabInfo.h"
#include "corectl/rules/Disks.h"
#include "corectl/rules/Refuse.h"
#include "platform/corectl/DovraUtil.h"

// A listing calls GetDovraDisks, GetDiskUuids, and GetDiskInfo for each disk. The handles of
// the first call hold the view, so that all results are of one moment.

void HostCtl::Dovra::DovraInfo::GetDovraDisks(DiskLuns& luns) {
  auto& host = Lab::Session::Current();
  host.InjectFault("GetDovraDisks");
  luns.clear();
  const auto view = host.GetDiskView();
  for (auto& disk : view->disks) {
    if (disk.isAttached) luns.emplace_back(view, &disk);
  }
}

namespace Lab {

using CoreCtl::Dovra::DovraUtil;
using HostCtl::Dovra::DovraDiskInfo;
using HostCtl::Dovra::Uuid;

void LabInfo::GetDiskUuids(std::vector<Uuid>& disks) {
  host_.InjectFault("GetDiskUuids");
  disks.clear();
  diskView_ = host_.GetDiskView();
  if (!diskView_->isMember) return;
  for (const auto& disk : diskView_->disks) disks.push_back(disk.uuid);
}

void LabInfo::GetDiskInfo(const Uuid& uuid, const DiskLuns&, DovraDiskInfo& info) {
  host_.InjectFault("GetDiskInfo");
  diskView_ = host_.GetDiskView();
  const auto* const known = diskView_->Find(uuid);
  if (!known) Refuse("There is no disk with UUID " + DovraUtil::DovraUuidToString(uuid) + ".");
  const DiskRow& disk = known->row;
  const bool isAttached = known->isAttached;
  info.deviceName = isAttached ? disk.device : "Unknown";
  info.isFlash = disk.flash;
  info.uuid = disk.uuid;
  info.diskGroupUuid = disk.group;
  info.diskGroupName = isAttached ? disk.groupName : "Unknown";
  info.usedByThisHost = isAttached;
  info.inTavdir = diskView_->isMember && (disk.mounted || disk.unplugged);
  info.formatVersion = static_cast<std::int32_t>(disk.formatVersion);
  info.deduplication = disk.deduplication;
  info.checksum = disk.checksum;
  info.checksumOk = disk.checksumOk && !disk.failed;
  info.isCapacityTier = !disk.IsCache();
  info.encryption = disk.encryption;
  info.diskKeyLoaded = disk.keyLoaded;
  info.isMounted = disk.mounted;
}

void LabInfo::AddDisks(const std::string& ssd, const std::vector<std::string>& disks) {
  host_.Change("AddDisks",
               [&](Store& store, const HostRow& host) { Lab::AddDisks(store, host, ssd, disks); });
}

namespace {

/// Refuses an unknown mode; an empty one is the default.
void CheckEvacuationMode(const std::string& mode) {
  if (mode.empty() || std::ranges::count(kEvacuationModes, mode) != 0) return;
  Refuse("Unknown evacuation mode \"" + mode + "\"; the modes are " +
         BaseLibs::Join(kEvacuationModes, ", ") + ".");
}

}  // namespace

void LabInfo::ChangeMounted(Operation operation, FindDisk find, const std::string& name,
                            bool mounted) {
  host_.Change(operation, [&](Store& store, const HostRow& host) {
    SetMounted(store, host, find(store, host, name), mounted);
  });
}

void LabInfo::MountDiskGroup(const std::string& ssd) {
  ChangeMounted("MountDiskGroup", RequireGroupDisk, ssd, true);
}
void LabInfo::MountDiskByUuid(const std::string& uuid) {
  ChangeMounted("MountDiskByUuid", RequireDiskByUuid, uuid, true);
}
void LabInfo::MountDisk(const std::string& disk) {
  ChangeMounted("MountDisk", RequireClaimedDisk, disk, true);
}
void LabInfo::UnmountDiskGroup(const std::string& ssd) {
  ChangeMounted("UnmountDiskGroup", RequireGroupDisk, ssd, false);
}
void LabInfo::UnmountDisk(const std::string& disk) {
  ChangeMounted("UnmountDisk", RequireClaimedDisk, disk, false);
}
void LabInfo::UnmountDiskByUuid(const std::string& uuid) {
  ChangeMounted("UnmountDiskByUuid", RequireDiskByUuid, uuid, false);
}

void LabInfo::Remove(Operation operation, FindDisk find, const std::string& name,
                     const std::string& evacuationMode,
                     void (*rule)(Store&, const HostRow&, const DiskRow&)) {
  host_.Change(operation, [&](Store& store, const HostRow& host) {
    CheckEvacuationMode(evacuationMode);
    const DiskRow disk = find(store, host, name);
    if (disk.IsLost() && !evacuationMode.empty() && evacuationMode != kNoAction) {
      Refuse(
          "The data of a disk that cannot be read cannot be evacuated; remove it with noAction.");
    }
    rule(store, host, disk);
  });
}

void LabInfo::RemoveDisk(const std::string& disk, const std::string& evacuationMode) {
  Remove("RemoveDisk", RequireClaimedDisk, disk, evacuationMode, RemoveCapacityDisk);
}
void LabInfo::RemoveDiskGroup(const std::string& ssd, const std::string& evacuationMode) {
  Remove("RemoveDiskGroup", RequireGroupDisk, ssd, evacuationMode, RemoveGroup);
}
void LabInfo::RemoveDiskByUuid(const std::string& uuid, const std::string& evacuationMode) {
  Remove("RemoveDiskByUuid", RequireDiskByUuid, uuid, evacuationMode, RemoveDiskOrGroup);
}

void LabInfo::SetAutoClaimMode(bool enabled) {
  host_.Change("SetAutoClaimMode", [&](Store& store, HostRow& host) {
    host.autoClaim = enabled;
    store.Save(host);
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
