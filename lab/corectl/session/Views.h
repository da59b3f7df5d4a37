// What a host knows of its cluster and of the cluster's disks, as of one moment.
#pragma once

#include <optional>
#include <vector>

#include "corectl/rules/Clusters.h"
#include "platform/hostctl/DovraRecords.h"

namespace Lab {

struct ClusterView {
  HostRow host;
  bool usesUnicast = false;
  std::optional<MemberRow> member;  ///< if it is in effect
  ClusterRow cluster;               ///< of a member
  std::vector<Member> members;      ///< of the cluster, reached or not

  /// Refuses when the host is no member.
  const MemberRow& RequireMember() const;
};

ClusterView ReadClusterView(Store& store, const HostRow& host);

/// The claimed disks of the host, and of the hosts that it reaches in its cluster.
struct DiskView {
  struct Disk final : HostCtl::Dovra::DovraDiskLun {
    Disk(DiskRow disk, bool attached);
    HostCtl::Dovra::Uuid GetUuid() const override { return uuid; }
    std::string GetDeviceName() const override { return row.device; }

    HostCtl::Dovra::Uuid uuid;
    DiskRow row;
    bool isAttached;  ///< to this host; false for an unplugged one
  };

  bool isMember = false;    ///< of a cluster, in effect
  std::vector<Disk> disks;  ///< in the order of their UUIDs

  /// Null if the host knows no such disk.
  const Disk* Find(const HostCtl::Dovra::Uuid& uuid) const;
};

DiskView ReadDiskView(Store& store, const HostRow& host);

}  // namespace Lab
