// Rules of clusters: membership, fault domains, datastores, maintenance. Each function works within
// its caller's transaction and refuses with `DovraCtlException`.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "store/Store.h"

namespace Lab {

/// The host's membership as far as it is in effect; nothing on a host outside any cluster and on
/// one that has restarted and not restored it yet.
std::optional<MemberRow> FindRunningMember(Store& store, const HostRow& host);
/// The same, refused when there is none.
MemberRow RequireRunningMember(Store& store, const HostRow& host);

/// A cluster's running members as all of them see it: the master, the backup, then the others in
/// the order in which they came. A witness is neither master nor backup.
struct Membership {
  std::vector<MemberRow> members;
  std::string masterUuid;  ///< the nil UUID when there is none
  std::string backupUuid;
};
Membership ReadMembership(Store& store, const std::string& cluster);

void CreateCluster(Store& store, const HostRow& host, const std::string& uuid);
/// Joins the cluster, or founds it if no host is in it yet.
void JoinCluster(Store& store, const HostRow& host, const std::string& uuid, bool asWitness,
                 const std::string& preferredFaultDomain);
void LeaveCluster(Store& store, HostRow& host);
/// Puts the persisted membership into effect again. Without one there is nothing to do at boot;
/// asked for by hand, that is refused.
void RestoreCluster(Store& store, const HostRow& host, bool boot);
/// What a host's restart takes away: its membership as others see it, its storage network, a
/// maintenance operation in progress. What is persisted stays.
void Reboot(Store& store, HostRow& host);
/// Takes the host out of the lab, and out of its cluster as if it had died.
void RemoveHost(Store& store, const HostRow& host);

/// The id of a fault domain: the same on every host of it. Empty if there is no name.
std::string FaultDomainId(const std::string& name);
/// The id of the host's fault domain; a host in none is one of its own.
std::string FaultDomainId(const HostRow& host);
void SetFaultDomain(Store& store, HostRow& host, const std::string& name);
/// The fault domains of the data sites when the cluster has a witness and exactly two of them;
/// otherwise nothing: the cluster is not stretched.
std::vector<std::string> StretchedSites(Store& store, const std::string& cluster);
/// The fault domain that the cluster's witness prefers.
std::string PreferredFaultDomain(Store& store, const std::string& cluster);
void SetPreferredFaultDomain(Store& store, const HostRow& host, const std::string& name);

void StartMaintenance(Store& store, HostRow& host);
void CancelMaintenance(Store& store, HostRow& host);

std::vector<DatastoreRow> ListDatastores(Store& store, const HostRow& host);
/// An empty UUID stands for the default datastore.
DatastoreRow RequireDatastore(Store& store, const HostRow& host, const std::string& uuid);
void AddDatastore(Store& store, const HostRow& host, const std::string& uuid,
                  const std::string& name);
void RenameDatastore(Store& store, const HostRow& host, const std::string& uuid,
                     const std::string& name);
void RemoveDatastore(Store& store, const HostRow& host, const std::string& uuid);
void ClearDatastores(Store& store, const HostRow& host);

}  // namespace Lab
