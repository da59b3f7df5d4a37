// Members of clusters. Each function works within its caller's transaction, and throws
// `DovraCtlException` when it refuses.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "store/Store.h"

namespace Lab {

/// A host in a cluster.
struct Member {
  MemberRow row;
  HostRow host;
};

/// Returns all members of the cluster, running or not, in join order.
std::vector<Member> ListMembers(Store& store, const std::string& cluster);
/// Returns all members of the cluster that the host is in.
std::vector<Member> ListMembers(Store& store, const HostRow& host);

inline constexpr const char* kNoMember = "This host is not in a Dovra cluster.";

/// Returns the host's membership if it is in effect: after a reboot it must be restored first.
std::optional<MemberRow> FindRunningMember(Store& store, const HostRow& host);
/// The same. Refuses when there is none.
MemberRow RequireRunningMember(Store& store, const HostRow& host);
/// Returns the cluster of a member.
ClusterRow RequireCluster(Store& store, const std::string& uuid);

/// Running members: the master, the backup, then the others in join order. A witness is neither
/// master nor backup.
struct Membership {
  std::vector<Member> members;
  std::string masterUuid;  ///< the nil UUID when there is none
  std::string backupUuid;
};
Membership MembershipOf(std::vector<Member> running);

/// Records that `host` changed what the cluster shares.
void BumpGeneration(Store& store, const std::string& cluster, const HostRow& host);
/// Records that `host` joined, left, started or stopped.
void BumpMembership(Store& store, const std::string& cluster, const HostRow& host);
/// Records that the partitions changed.
void BumpMembership(Store& store, const std::string& cluster);

/// Adds the host to `member.cluster`, as its last member.
void AddMember(Store& store, const HostRow& host, MemberRow member);
/// Removes the host from its cluster, and the cluster when no member is left.
void RemoveMember(Store& store, const HostRow& host, const std::string& cluster);

/// Returns the id of a fault domain: the same on all its hosts. Empty if the name is empty.
std::string FaultDomainId(const std::string& name);
/// Returns the two data sites of a stretched cluster: one with a witness whose data hosts are in
/// exactly two fault domains. Empty for other clusters.
std::vector<std::string> SitesOf(const std::vector<Member>& members);
/// Returns the fault domain that the witness prefers. Empty without a witness.
std::string PreferredFaultDomain(const std::vector<Member>& members);

}  // namespace Lab
