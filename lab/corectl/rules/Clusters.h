// Members of clusters. Each function works within its caller's transaction, and throws
// `DovraCtlException` when it refuses.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "corectl/rules/Partitions.h"
#include "store/Store.h"

namespace Lab {

/// Returns all members of the cluster, running or not, in join order.
std::vector<Member> ListMembers(Store& store, const std::string& cluster);
/// Returns all members of the cluster that the host is in.
std::vector<Member> ListMembers(Store& store, const HostRow& host);

inline constexpr const char* kNoMember = "This host is not in a Dovra cluster.";

/// Returns the host's membership if it is in effect: after a reboot it must be restored first.
std::optional<MemberRow> FindRunningMember(Store& store, const HostRow& host);
/// The same. Refuses when there is none.
MemberRow RequireRunningMember(Store& store, const HostRow& host);
/// Returns the cluster of a member. Throws `HostError`, as damage, when there is none.
ClusterRow RequireCluster(Store& store, const std::string& uuid);

/// A partition that has the quorum.
struct Quorum {
  std::string votes;                ///< as in "2 of 3"
  std::vector<std::string> others;  ///< UUIDs of its data hosts but the one that asked
};

/// Returns the quorum of the host's partition. Refuses when it has none. A host that is `joining`
/// counts as running, also where it has not restored its membership, and need not be a member yet.
Quorum RequireQuorum(Store& store, const HostRow& host, const std::string& cluster,
                     const MemberRow* joining = nullptr);
/// Refuses to change a fault domain without the quorum, and while the network splits the cluster:
/// the witness would change sides under a running partition.
void RequireWhole(Store& store, const HostRow& host, const std::string& cluster);

/// Records that `host` changed what the cluster shares.
void BumpGeneration(Store& store, const std::string& cluster, const HostRow& host);
/// Records that members run or stop, or that the partitions changed.
void BumpMembership(Store& store, const std::string& cluster);

/// Lets the host run in `member.cluster`, as its newest member.
void AddMember(Store& store, const HostRow& host, MemberRow member);
/// Removes the host from its cluster, and the cluster when no member is left.
void RemoveMember(Store& store, const HostRow& host, const std::string& cluster);

/// Returns the id of a fault domain: the same on all its hosts. Empty if the name is empty.
std::string FaultDomainId(const std::string& name);

}  // namespace Lab
