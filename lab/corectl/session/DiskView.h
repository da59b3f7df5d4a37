#pragma once

#include <vector>

#include "platform/hostctl/DovraRecords.h"
#include "store/Store.h"

namespace Lab {

/// The claimed disks that a host knows of, its own and those of the hosts that it reaches in its
/// cluster, as of one moment.
struct DiskView {
  struct Disk final : HostCtl::Dovra::DovraDiskLun {
    Disk(DiskRow disk, bool isThere);
    HostCtl::Dovra::Uuid GetUuid() const override { return uuid; }
    std::string GetDeviceName() const override { return row.device; }

    HostCtl::Dovra::Uuid uuid;
    DiskRow row;
    bool isAttached;  ///< it is there on the host; otherwise the host only hears of it
  };

  bool isMember = false;    ///< of a cluster, in effect
  std::vector<Disk> disks;  ///< in the order of their UUIDs

  /// Null if the host knows of no such disk.
  const Disk* Find(const HostCtl::Dovra::Uuid& uuid) const;
};

DiskView ReadDiskView(Store& store, const HostRow& host);

}  // namespace Lab
