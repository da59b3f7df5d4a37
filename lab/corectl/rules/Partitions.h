// Which members of a cluster reach each other, and which of them have the quorum: worked out from
// the members' values alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "store/Rows.h"

namespace Lab {

/// A host in a cluster.
struct Member {
  MemberRow row;
  HostRow host;
  bool isIsolated = false;  ///< the host has interfaces, but none of them runs

  bool Runs() const { return host.power && row.running; }
};

/// The running members that reach each other, the master first, then the backup, then the others in
/// join order. A witness is neither master nor backup.
struct Partition {
  std::vector<const Member*> members;  ///< pointers into the list of members
  std::int64_t group = 0;              ///< network group; `kIsolated` for an isolated member
  std::size_t number = 0;              ///< among the cluster's partitions, from 1 on; 0: none
  bool isOnly = false;                 ///< the cluster has no other partition
  std::size_t votes = 0;               ///< one a member; when stretched, one a site and the witness
  std::size_t allVotes = 0;            ///< the cluster's, of running members or not

  static constexpr std::int64_t kIsolated = -1;

  /// Whether the partition has more than half of all votes, and a data host.
  bool HasQuorum() const;
  /// Returns the votes as in "2 of 3".
  std::string GetVotes() const;
  std::string GetHealth() const;
  /// Returns the UUID of the data host in this place, 0 for the master and 1 for the backup; the
  /// nil UUID when there is none.
  std::string GetLeader(std::size_t place) const;
  /// Returns the membership's UUID: `clusters`, or the partition's own beside other partitions.
  std::string GetMembershipUuid(const std::string& clusters) const;
};

/// Returns the partitions of the cluster, given all its members in join order. Members reach each
/// other in the same network group, unless they are isolated. A witness in group 0 has a link to
/// every partition but those of isolated members. It belongs to the one with most data hosts or,
/// when the cluster is stretched, to that of its preferred site.
std::vector<Partition> PartitionsOf(const std::vector<Member>& members);
std::vector<Partition> PartitionsOf(std::vector<Member>&&) = delete;  // the members would be gone

/// Returns the member's partition or, for a running host that is no member, the one that it would
/// join. Without members when there is none.
Partition PartitionOf(const std::vector<Member>& members, const Member& one);
Partition PartitionOf(std::vector<Member>&&, const Member&) = delete;

/// Returns the two data sites of a stretched cluster: one with a witness whose data hosts are in
/// exactly two fault domains. Empty for other clusters.
std::vector<std::string> SitesOf(const std::vector<Member>& members);
/// Returns the fault domain that the witness prefers. Empty without a witness.
std::string PreferredFaultDomain(const std::vector<Member>& members);

}  // namespace Lab
