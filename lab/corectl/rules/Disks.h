// Rules of disks and disk groups. A disk group is one flash device, which fronts it, and its
// capacity disks; it is named after the flash device. Each function works within its caller's
// transaction and refuses with `DovraCtlException`.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/Store.h"

namespace Lab {

/// Makes a disk group of an empty flash device, or adds the disks to the one it fronts.
void AddDisks(Store& store, const HostRow& host, const std::string& ssd,
              const std::vector<std::string>& disks);

/// How a command names a disk: by its device name, as the device that fronts a disk group, or by
/// the UUID of either.
DiskRow RequireClaimedDisk(Store& store, const HostRow& host, const std::string& device);
DiskRow RequireGroupDisk(Store& store, const HostRow& host, const std::string& ssd);
DiskRow RequireDiskByUuid(Store& store, const HostRow& host, const std::string& uuid);

/// What may be done with the data of a disk before it is released.
inline constexpr std::string_view kEvacuationModes[] = {"NoAction", "EnsureObjectAccessibility",
                                                        "EvacuateAllData"};

/// Releases one capacity disk, but not the last one of its group.
void RemoveCapacityDisk(Store& store, const HostRow& host, const DiskRow& disk);
/// Releases the flash device and each disk behind it.
void RemoveGroup(Store& store, const HostRow& host, const DiskRow& fronting);
/// The one or the other, by what the disk is.
void RemoveDiskOrGroup(Store& store, const HostRow& host, const DiskRow& disk);

/// Mounts or unmounts a disk; the device that fronts a group stands for the whole group.
void SetMounted(Store& store, const HostRow& host, const DiskRow& disk, bool mounted);

void SetCapacityTag(Store& store, const HostRow& host, const std::string& device, bool tagged);

/// Adds an empty disk to the host. With auto-claim on, this is the event at which the service
/// claims what is empty.
void PlugIn(Store& store, const HostRow& host, const std::string& device, bool flash);

// What happens to disks. A lost one is out of use until it is replugged or replaced, and so is,
// when it is a flash device, the group behind it.

/// The disk can no longer be read: it is seen, and that is all.
void Fail(Store& store, const HostRow& host, const std::string& device);
/// The disk is no longer seen; the cluster still knows it.
void Unplug(Store& store, const HostRow& host, const std::string& device);
/// The disk is seen again, and mounted again if its group is.
void Replug(Store& store, const HostRow& host, const std::string& device);
/// A new, empty disk takes the place of a lost one that is in no group any more.
void Replace(Store& store, const HostRow& host, const std::string& device);

/// Adds `count` claimed disks on an adapter of their own, in groups of one flash device and up to
/// seven capacity disks.
void Generate(Store& store, const HostRow& host, std::int64_t count);

}  // namespace Lab
