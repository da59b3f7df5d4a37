#pragma once

#include <cstdint>
#include <map>

#include "platform/hostctl/DovraRecords.h"
#include "store/Store.h"

namespace Lab {

/// The claimed disks that a host knows of, its own and those of the hosts that it reaches in its
/// cluster, as of one moment.
struct DiskView {
  std::int64_t host = 0;
  bool isMember = false;  ///< of a cluster, in effect
  std::map<HostCtl::Dovra::Uuid, DiskRow> disks;

  /// Whether the disk is there on the host; otherwise the host only hears of it.
  bool IsSeen(const DiskRow& disk) const { return disk.host == host && !disk.unplugged; }
};

DiskView ReadDiskView(Store& store, const HostRow& host);

}  // namespace Lab
