// A network that splits: which hosts of a cluster reach each other, and what they may do then.
#pragma once

#include <string>
#include <vector>

#include "corectl/rules/Clusters.h"

namespace Lab {

/// The part of a cluster that one of its hosts reaches.
struct Partition {
  std::vector<Member> members;  ///< running, in the order in which they came to run
  bool isSplit = false;         ///< the cluster has members that are not reached
  std::size_t votes = 0;        ///< one for each of `members`
  std::size_t allVotes = 0;     ///< one for each member, running or not

  /// Whether the partition may change what the cluster shares.
  bool HasQuorum() const { return !isSplit || 2 * votes > allVotes; }
};

/// The partition of those in the network group, out of all members of a cluster. A witness reaches
/// both sites of a stretched cluster by links of its own: when the split is between them, it goes
/// with the site that it prefers; in a group without any data host it is cut off from both.
Partition PartitionOf(std::vector<Member> members, std::int64_t networkGroup);
/// The partition of this host, in its cluster or in one that it would join.
Partition PartitionOf(std::vector<Member> members, const HostRow& host);
Partition PartitionOf(Store& store, const HostRow& host, const std::string& cluster);

/// Refuses a change of what the cluster shares on a partition without the quorum.
void RequireQuorum(Store& store, const HostRow& host, const std::string& cluster);

/// Puts the hosts into a network group of their own: they reach each other and nobody else.
void SplitNetwork(Store& store, const std::vector<std::string>& hosts);
/// Lets every host reach every other again.
void HealNetwork(Store& store);

}  // namespace Lab
