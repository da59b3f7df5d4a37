// Rules of disks and disk groups. A disk group is one cache device, after which it is named, and
// its capacity disks. Each function works within its caller's transaction, and throws
// `DovraCtlException` when it refuses.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "store/Store.h"

namespace Lab {

/// Makes a disk group with the cache device `ssd`, or adds the disks to the group that it has.
void AddDisks(Store& store, const HostRow& host, const std::string& ssd,
              const std::vector<std::string>& disks);

// The ways in which a command names a claimed disk: by its device name, by the device name of a
// cache device, or by its UUID, which alone finds an unplugged disk.
DiskRow RequireClaimedDisk(Store& store, const HostRow& host, const std::string& device);
DiskRow RequireGroupDisk(Store& store, const HostRow& host, const std::string& ssd);
DiskRow RequireDiskByUuid(Store& store, const HostRow& host, const std::string& uuid);

/// What is done with the data of a disk before it is released.
inline constexpr std::string_view kNoAction = "NoAction";
inline constexpr std::string_view kEvacuationModes[] = {kNoAction, "EnsureObjectAccessibility",
                                                        "EvacuateAllData"};

/// Releases one capacity disk, but not the last one of its group.
void RemoveCapacityDisk(Store& store, const HostRow& host, const DiskRow& disk);
/// Releases the cache device and the capacity disks of its group.
void RemoveGroup(Store& store, const HostRow& host, const DiskRow& cacheDevice);
/// Releases a capacity disk or, given a cache device, its group.
void RemoveDiskOrGroup(Store& store, const HostRow& host, const DiskRow& disk);

/// Mounts or unmounts a capacity disk or, given a cache device, its group.
void SetMounted(Store& store, const HostRow& host, const DiskRow& disk, bool mounted);

void SetCapacityTag(Store& store, const HostRow& host, const std::string& device, bool tagged);

/// With auto claim on and the host up, claims empty disks: pairs each flash disk with a capacity
/// disk in a new group, and spreads the other capacity disks over all groups that are not full.
/// Skips a group whose cache device is lost.
void AutoClaim(Store& store, const HostRow& host);

/// Adds an empty disk to the host, then claims empty disks as `AutoClaim` does.
void PlugIn(Store& store, const HostRow& host, const std::string& device, bool flash);

// Events of a disk. A lost disk (failed or unplugged) is unmounted until it is replugged or
// replaced; a lost cache device unmounts its group.

/// Lets the disk fail: it stays attached, but cannot be read.
void Fail(Store& store, const HostRow& host, const std::string& device);
/// Detaches the disk. The cluster still knows a claimed one.
void Unplug(Store& store, const HostRow& host, const std::string& device);
/// Attaches the disk again. Mounts the group of a cache device, or a disk of a mounted group.
void Replug(Store& store, const HostRow& host, const std::string& device);
/// Puts a new, empty disk in the place of a lost one that is in no group.
void Replace(Store& store, const HostRow& host, const std::string& device);

/// Adds `count` claimed disks on a new adapter, in groups of one cache device and up to seven
/// capacity disks.
void Generate(Store& store, const HostRow& host, std::int64_t count);

}  // namespace Lab
