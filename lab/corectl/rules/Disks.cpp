#include "corectl/rules/Disks.h"

#include <algorithm>
#include <map>
#include <set>

#include "corectl/rules/CanonicalUuid.h"
#include "corectl/rules/Refuse.h"
#include "store/Uuids.h"

namespace Lab {

namespace {

constexpr std::size_t kMaxGroupDisks = 7;  // behind one cache device
constexpr std::int64_t kFormatVersion = 5;

std::string Quoted(const std::string& text) {
  return "\"" + text + "\"";
}

DiskRow RequireDevice(Store& store, const HostRow& host, const std::string& device) {
  auto disk = store.Find<DiskRow>(host.id, device);
  if (!disk || disk->unplugged) {
    Refuse("Host " + host.name + " has no disk " + Quoted(device) +
           (disk ? ": it is unplugged." : "."));
  }
  return *disk;
}

/// Returns a disk's name for messages: its device name while it is attached, else its UUID.
std::string NameOf(const DiskRow& disk) {
  return disk.unplugged ? disk.uuid : Quoted(disk.device);
}

/// Returns the group's disks but its cache device.
std::vector<DiskRow> ListCapacityDisks(Store& store, const HostRow& host,
                                       const std::string& group) {
  auto disks = store.ListGroup(host.id, group);
  std::erase_if(disks, std::mem_fn(&DiskRow::IsCache));
  return disks;
}

/// Claims the disk for a group; without one, as the cache device of a new group.
void Claim(DiskRow& disk, const std::string& group, const std::string& groupName) {
  disk.uuid = NewUuid();
  disk.group = group.empty() ? disk.uuid : group;
  disk.groupName = groupName;
  disk.mounted = true;
  disk.formatVersion = kFormatVersion;
  disk.checksum = "crc32c";
}

void Release(Store& store, const DiskRow& disk) {
  store.Save(DiskRow{.host = disk.host,
                     .device = disk.device,
                     .flash = disk.flash,
                     .capacityTag = disk.capacityTag,
                     .failed = disk.failed,
                     .unplugged = disk.unplugged});
}

void RequireEmpty(const DiskRow& disk) {
  if (disk.failed) Refuse("Disk " + Quoted(disk.device) + " has failed.");
  if (disk.IsClaimed()) {
    Refuse("Disk " + Quoted(disk.device) + " is in use by disk group " + Quoted(disk.groupName) +
           ".");
  }
}

/// Returns the cache device of a group, or makes one of an empty flash disk.
DiskRow TakeCacheDevice(Store& store, const HostRow& host, const std::string& ssd) {
  DiskRow disk = RequireDevice(store, host, ssd);
  if (disk.IsCache() && !disk.IsLost()) return disk;
  RequireEmpty(disk);
  if (!disk.flash) Refuse("Disk " + Quoted(ssd) + " is not a flash disk.");
  if (disk.capacityTag) {
    Refuse("Disk " + Quoted(ssd) +
           " is tagged capacityFlash; it cannot be the cache device of a disk group.");
  }
  Claim(disk, "", disk.device);
  store.Save(disk);
  return disk;
}

/// Saves a disk that was lost and unmounts it; with a cache device, its whole group.
void Lose(Store& store, const DiskRow& lost) {
  store.Save(lost);
  if (!lost.IsClaimed()) return;
  for (DiskRow& disk : store.ListGroup(lost.host, lost.group)) {
    if (!lost.IsCache() && disk.device != lost.device) continue;
    disk.mounted = false;
    store.Save(disk);
  }
}

std::string DeviceName(std::int64_t adapter, std::int64_t target) {
  return "mpx.xhba" + std::to_string(adapter) + ":C0:T" + std::to_string(target) + ":L0";
}

}  // namespace

void AddDisks(Store& store, const HostRow& host, const std::string& ssd,
              const std::vector<std::string>& disks) {
  const DiskRow cacheDevice = TakeCacheDevice(store, host, ssd);
  if (ListCapacityDisks(store, host, cacheDevice.uuid).size() + disks.size() > kMaxGroupDisks) {
    Refuse("Disk group " + Quoted(cacheDevice.device) + " can have at most " +
           std::to_string(kMaxGroupDisks) + " capacity disks.");
  }
  std::set<std::string> seen = {ssd};
  for (const std::string& device : disks) {
    DiskRow disk = RequireDevice(store, host, device);
    if (!seen.insert(device).second) Refuse("Disk " + Quoted(device) + " is given twice.");
    RequireEmpty(disk);
    if (!disk.IsCapacityKind()) {
      Refuse("Disk " + Quoted(device) +
             " is a flash disk; to hold data it must be tagged capacityFlash.");
    }
    Claim(disk, cacheDevice.uuid, cacheDevice.device);
    disk.mounted = cacheDevice.mounted;
    store.Save(disk);
  }
}

void AutoClaim(Store& store, const HostRow& host) {
  if (!host.autoClaim || !host.power) return;
  const std::vector<DiskRow> disks = store.List<DiskRow>(host.id);
  std::map<std::string, std::size_t> groups;  // number of disks by cache device
  for (const DiskRow& disk : disks) {
    if (disk.IsCache() && !disk.IsLost()) groups.emplace(disk.device, 0);
  }
  std::vector<std::string> flash, capacity;
  for (const DiskRow& disk : disks) {
    if (const auto group = groups.find(disk.groupName); group != groups.end()) ++group->second;
    if (disk.IsClaimed() || disk.IsLost()) continue;
    (disk.IsCapacityKind() ? capacity : flash).push_back(disk.device);
  }
  auto cacheDevice = flash.begin();
  for (const std::string& device : capacity) {
    const auto group =
        cacheDevice != flash.end()
            ? groups.emplace(*cacheDevice++, 1).first
            : std::ranges::min_element(groups, {}, [](const auto& one) { return one.second; });
    if (group == groups.end() || group->second > kMaxGroupDisks) return;
    AddDisks(store, host, group->first, {device});
    ++group->second;
  }
}

DiskRow RequireClaimedDisk(Store& store, const HostRow& host, const std::string& device) {
  DiskRow disk = RequireDevice(store, host, device);
  if (!disk.IsClaimed()) Refuse("Disk " + Quoted(device) + " is not in use by Dovra.");
  return disk;
}

DiskRow RequireGroupDisk(Store& store, const HostRow& host, const std::string& ssd) {
  DiskRow disk = RequireClaimedDisk(store, host, ssd);
  if (!disk.IsCache()) Refuse("Disk " + Quoted(ssd) + " is not the cache device of a disk group.");
  return disk;
}

DiskRow RequireDiskByUuid(Store& store, const HostRow& host, const std::string& uuid) {
  const std::string canonical = CanonicalUuid(uuid);
  auto disk = store.FindDisk(canonical);
  if (!disk || disk->host != host.id) {
    Refuse("Host " + host.name + " has no disk with UUID " + canonical + ".");
  }
  return *disk;
}

void RemoveCapacityDisk(Store& store, const HostRow& host, const DiskRow& disk) {
  if (disk.IsCache()) {
    Refuse("Disk " + Quoted(disk.device) +
           " is the cache device of a disk group; it can only be removed with the whole group.");
  }
  if (ListCapacityDisks(store, host, disk.group).size() == 1) {
    Refuse("Disk " + NameOf(disk) + " is the last capacity disk of disk group " +
           Quoted(disk.groupName) + "; remove the whole group by its ssd.");
  }
  Release(store, disk);
}

void RemoveGroup(Store& store, const HostRow& host, const DiskRow& cacheDevice) {
  for (const DiskRow& disk : store.ListGroup(host.id, cacheDevice.uuid)) Release(store, disk);
}

void RemoveDiskOrGroup(Store& store, const HostRow& host, const DiskRow& disk) {
  if (disk.IsCache()) {
    RemoveGroup(store, host, disk);
  } else {
    RemoveCapacityDisk(store, host, disk);
  }
}

void SetMounted(Store& store, const HostRow& host, const DiskRow& disk, bool mounted) {
  if (mounted && disk.IsLost()) {
    Refuse("Disk " + NameOf(disk) + (disk.failed ? " has failed." : " is unplugged."));
  }
  std::vector<DiskRow> disks = {disk};
  if (disk.IsCache()) {
    disks = store.ListGroup(host.id, disk.uuid);
  } else if (mounted && !store.Find<DiskRow>(host.id, disk.groupName).value_or(DiskRow()).mounted) {
    Refuse("Disk group " + Quoted(disk.groupName) + " is not mounted; mount it by its ssd first.");
  }
  std::erase_if(disks, [=](const DiskRow& one) {
    return one.mounted == mounted || (mounted && one.IsLost());
  });
  if (disks.empty()) {
    Refuse("Disk " + NameOf(disk) + (mounted ? " is mounted already." : " is not mounted."));
  }
  for (DiskRow& one : disks) {
    one.mounted = mounted;
    store.Save(one);
  }
}

void SetCapacityTag(Store& store, const HostRow& host, const std::string& device, bool tagged) {
  DiskRow disk = RequireDevice(store, host, device);
  if (!disk.flash) Refuse("Disk " + Quoted(device) + " is not a flash disk.");
  RequireEmpty(disk);
  if (disk.capacityTag == tagged) {
    Refuse("Disk " + Quoted(device) +
           (tagged ? " is tagged capacityFlash already." : " is not tagged capacityFlash."));
  }
  disk.capacityTag = tagged;
  store.Save(disk);
}

void PlugIn(Store& store, const HostRow& host, const std::string& device, bool flash) {
  if (store.Find<DiskRow>(host.id, device)) {
    Refuse("Host " + host.name + " has a disk " + Quoted(device) + " already.");
  }
  store.Save(DiskRow{.host = host.id, .device = device, .flash = flash});
  AutoClaim(store, host);
}

void Fail(Store& store, const HostRow& host, const std::string& device) {
  DiskRow disk = RequireDevice(store, host, device);
  if (disk.failed) Refuse("Disk " + Quoted(device) + " has failed already.");
  disk.failed = true;
  Lose(store, disk);
}

void Unplug(Store& store, const HostRow& host, const std::string& device) {
  DiskRow disk = RequireDevice(store, host, device);
  disk.unplugged = true;
  Lose(store, disk);
}

void Replug(Store& store, const HostRow& host, const std::string& device) {
  auto found = store.Find<DiskRow>(host.id, device);
  if (!found || !found->unplugged) {
    Refuse("Host " + host.name + " has no unplugged disk " + Quoted(device) + ".");
  }
  DiskRow disk = *found;
  disk.unplugged = false;
  store.Save(disk);
  if (!disk.failed && disk.IsClaimed()) {
    const bool isGroupMounted =
        disk.IsCache() || store.FindDisk(disk.group).value_or(DiskRow()).mounted;
    if (isGroupMounted) SetMounted(store, host, disk, true);
  }
  AutoClaim(store, host);
}

void Replace(Store& store, const HostRow& host, const std::string& device) {
  auto disk = store.Find<DiskRow>(host.id, device);
  if (!disk) Refuse("Host " + host.name + " has no disk " + Quoted(device) + ".");
  if (!disk->IsLost()) Refuse("Disk " + Quoted(device) + " has not failed.");
  if (disk->IsClaimed()) {
    Refuse("Disk " + Quoted(device) + " is still known to disk group " + Quoted(disk->groupName) +
           "; remove it from there first.");
  }
  disk->failed = disk->unplugged = disk->capacityTag = false;
  store.Save(*disk);
  AutoClaim(store, host);
}

void Generate(Store& store, const HostRow& host, std::int64_t count) {
  std::int64_t adapter = 3;  // the first two hold the disks that every host has
  while (store.Find<DiskRow>(host.id, DeviceName(adapter, 0))) ++adapter;
  DiskRow cacheDevice;
  for (std::int64_t target = 0; target < count; ++target) {
    DiskRow disk{.host = host.id, .device = DeviceName(adapter, target)};
    disk.flash = target % static_cast<std::int64_t>(kMaxGroupDisks + 1) == 0;
    if (disk.flash) cacheDevice = DiskRow();
    Claim(disk, cacheDevice.uuid, disk.flash ? disk.device : cacheDevice.device);
    if (disk.flash) cacheDevice = disk;
    store.Save(disk);
  }
}

}  // namespace Lab
