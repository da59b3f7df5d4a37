// Splits of the network: which members of a cluster reach each other, and which have the quorum.
#pragma once

#include <string>
#include <vector>

#include "corectl/rules/Clusters.h"

namespace Lab {

/// The part of a cluster that one of its hosts reaches.
struct Partition {
  std::vector<Member> members;  ///< running, in join order
  bool isSplit = false;         ///< the cluster has other partitions
  std::size_t votes = 0;        ///< one for each of `members`
  std::size_t allVotes = 0;     ///< one for each member, running or not

  /// Whether the partition may change what the cluster shares.
  bool HasQuorum() const { return !isSplit || 2 * votes > allVotes; }
};

/// Returns the partition in the network group, given all members of the cluster. The witness of a
/// stretched cluster has its own links to both sites: when these are parted, it goes with the site
/// that it prefers. In a group without data hosts it is cut off from both.
Partition PartitionOf(std::vector<Member> members, std::int64_t networkGroup);
/// Returns the partition of this host, in its cluster or in one that it would join.
Partition PartitionOf(std::vector<Member> members, const HostRow& host);
Partition PartitionOf(Store& store, const HostRow& host, const std::string& cluster);

/// Refuses when the partition of the host has no quorum.
void RequireQuorum(Store& store, const HostRow& host, const std::string& cluster);

/// Cuts the named hosts off from all others; they reach each other.
void SplitNetwork(Store& store, const std::vector<std::string>& hosts);
/// Ends all splits.
void HealNetwork(Store& store);

}  // namespace Lab
