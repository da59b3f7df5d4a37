// What the operations on clusters share: who is in one, as what, and how a change is noted. Each
// function works within its caller's transaction and refuses with `DovraCtlException`.
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

/// Every host of the cluster, running or not, in the order in which they came to run.
std::vector<Member> ListMembers(Store& store, const std::string& cluster);
/// Those of the cluster that the host is in, running or not, itself among them.
std::vector<Member> ListMembers(Store& store, const HostRow& host);

/// What is said of a host outside any cluster.
inline constexpr const char* kNoMember = "This host is not in a Dovra cluster.";

/// The host's membership as far as it is in effect; nothing on a host outside any cluster and on
/// one that has restarted and not restored it yet.
std::optional<MemberRow> FindRunningMember(Store& store, const HostRow& host);
/// The same, refused when there is none.
MemberRow RequireRunningMember(Store& store, const HostRow& host);
/// The cluster of a member.
ClusterRow RequireCluster(Store& store, const std::string& uuid);

/// Running members as all of them see it: the master, the backup, then the others in the order in
/// which they came. A witness is neither master nor backup.
struct Membership {
  std::vector<Member> members;
  std::string masterUuid;  ///< the nil UUID when there is none
  std::string backupUuid;
};
Membership MembershipOf(std::vector<Member> running);

/// Notes that `host` changed what the cluster shares.
void BumpGeneration(Store& store, const std::string& cluster, const HostRow& host);
/// Notes that `host` came or went.
void BumpMembership(Store& store, const std::string& cluster, const HostRow& host);
/// Notes that members reach others than before.
void BumpMembership(Store& store, const std::string& cluster);

/// Puts the host into the cluster, behind all that are in it.
void AddMember(Store& store, const HostRow& host, MemberRow member);
/// Takes the host out of its cluster, and the cluster with it that has no other host.
void RemoveMember(Store& store, const HostRow& host, const std::string& cluster);

/// The id of a fault domain: the same on every host of it. Empty if there is no name.
std::string FaultDomainId(const std::string& name);
/// The fault domains of the data sites when a cluster of these members has a witness and exactly
/// two of them; otherwise nothing: the cluster is not stretched.
std::vector<std::string> SitesOf(const std::vector<Member>& members);
/// The fault domain that the cluster's witness prefers; empty without a witness.
std::string PreferredFaultDomain(const std::vector<Member>& members);

}  // namespace Lab
