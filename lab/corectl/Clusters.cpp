#include "corectl/Clusters.h"

#include <algorithm>
#include <chrono>
#include <set>

#include "corectl/LabHost.h"
#include "platform/corectl/DovraUtil.h"
#include "store/NewUuid.h"

namespace Lab {

using CoreCtl::Dovra::DovraUtil;

namespace {

constexpr const char* kNilUuid = "00000000-0000-0000-0000-000000000000";
constexpr const char* kDefaultDatastoreName = "dovraDatastore";

std::int64_t MillisecondsNow() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

/// Notes that `host` changed the cluster's configuration.
void MoveGeneration(Store& store, ClusterRow& cluster, const HostRow& host) {
  ++cluster.generation;
  cluster.generationUuid = host.uuid;
  cluster.generationTime = MillisecondsNow();
  store.SaveCluster(cluster);
}

void MoveGeneration(Store& store, const std::string& uuid, const HostRow& host) {
  if (auto cluster = store.FindCluster(uuid)) MoveGeneration(store, *cluster, host);
}

/// Notes that `host` came or went.
void MoveMembership(Store& store, const std::string& uuid, const HostRow& host) {
  auto cluster = store.FindCluster(uuid);
  if (!cluster) return;
  ++cluster->revision;
  cluster->membershipUuid = NewUuid();
  MoveGeneration(store, *cluster, host);
}

std::int64_t NextOrder(Store& store, const std::string& cluster) {
  const auto members = store.ListMembers(cluster);
  return members.empty() ? 1 : members.back().order + 1;
}

/// Takes the host out of its cluster, and the cluster with it that has no other host.
void RemoveMembership(Store& store, const HostRow& host, const std::string& cluster) {
  store.RemoveMember(host.id);
  if (store.ListMembers(cluster).empty()) {
    store.RemoveCluster(cluster);
  } else {
    MoveMembership(store, cluster, host);
  }
}

/// The host is free to take part in another cluster: one that it has not restored is given up.
void RequireOutside(Store& store, const HostRow& host) {
  const auto member = store.FindMember(host.id);
  if (!member) return;
  if (member->running) Refuse("This host is in cluster " + member->cluster + " already.");
  RemoveMembership(store, host, member->cluster);
}

void AddMember(Store& store, const HostRow& host, const std::string& cluster, bool asWitness,
               const std::string& preferredFaultDomain) {
  MemberRow member;
  member.host = host.id;
  member.cluster = cluster;
  member.witness = asWitness;
  member.preferredFaultDomain = preferredFaultDomain;
  member.running = true;
  member.order = NextOrder(store, cluster);
  store.SaveMember(member);
  MoveMembership(store, cluster, host);
}

/// Refuses a fault domain that is none of the stretched cluster's two data sites.
void RequireSite(const std::vector<std::string>& sites, const std::string& name) {
  if (std::ranges::find(sites, name) != sites.end()) return;
  Refuse("\"" + name + "\" is not a fault domain of a data site; these are \"" + sites.front() +
         "\" and \"" + sites.back() + "\".");
}

void RequireName(const std::string& name, const char* what, std::size_t most) {
  if (name.empty() || DovraUtil::UTF8StringCharLength(name) > most) {
    Refuse(std::string("The ") + what + "'s name must have 1 to " + std::to_string(most) +
           " characters.");
  }
}

}  // namespace

std::optional<MemberRow> FindRunningMember(Store& store, const HostRow& host) {
  auto member = store.FindMember(host.id);
  if (member && !member->running) member.reset();
  return member;
}

MemberRow RequireRunningMember(Store& store, const HostRow& host) {
  auto member = FindRunningMember(store, host);
  if (!member) Refuse("This host is not in a Dovra cluster.");
  return *member;
}

Membership ReadMembership(Store& store, const std::string& cluster) {
  Membership membership{{}, kNilUuid, kNilUuid};
  auto& members = membership.members;
  members = store.ListMembers(cluster);
  std::erase_if(members, [](const MemberRow& member) { return !member.running; });
  // The two oldest data hosts lead; everybody else keeps their place behind them.
  const auto isData = [](const MemberRow& member) { return !member.witness; };
  auto place = members.begin();
  for (std::string* const leader : {&membership.masterUuid, &membership.backupUuid}) {
    const auto next = std::find_if(place, members.end(), isData);
    if (next == members.end()) break;
    *leader = next->hostUuid;
    std::rotate(place, next, next + 1);
    ++place;
  }
  return membership;
}

void CreateCluster(Store& store, const HostRow& host, const std::string& uuid) {
  const std::string canonical = DovraUtil::DovraUuidToString(DovraUtil::StringToDovraUuid(uuid));
  if (canonical == kNilUuid) Refuse("The nil UUID names no cluster.");
  if (store.FindCluster(canonical)) Refuse("Cluster " + canonical + " exists already.");
  RequireOutside(store, host);
  ClusterRow cluster;
  cluster.uuid = canonical;
  store.SaveCluster(cluster);
  store.AddDatastore({NewUuid(), canonical, kDefaultDatastoreName, true});
  AddMember(store, host, canonical, false, "");
}

void JoinCluster(Store& store, const HostRow& host, const std::string& uuid, bool asWitness,
                 const std::string& preferredFaultDomain) {
  const auto own = store.FindMember(host.id);
  if (!store.FindCluster(uuid)) {
    if (asWitness) Refuse("There is no cluster " + uuid + " for a witness to join.");
    return CreateCluster(store, host, uuid);
  }
  if (own && own->cluster == uuid && !own->running) {
    // Joins anew what it has not restored: its old place must not end the cluster.
    store.RemoveMember(host.id);
  } else {
    RequireOutside(store, host);
  }
  if (asWitness) {
    const auto members = store.ListMembers(uuid);
    if (std::ranges::any_of(members, &MemberRow::witness)) {
      Refuse("Cluster " + uuid + " has a witness already.");
    }
  }
  AddMember(store, host, uuid, asWitness, preferredFaultDomain);
  const auto sites = StretchedSites(store, uuid);
  if (asWitness && !sites.empty()) RequireSite(sites, preferredFaultDomain);
}

void LeaveCluster(Store& store, HostRow& host) {
  RemoveMembership(store, host, RequireRunningMember(store, host).cluster);
  host.enteringMaintenance = false;
  store.SaveHost(host);
}

void RemoveHost(Store& store, const HostRow& host) {
  if (const auto member = store.FindMember(host.id)) {
    RemoveMembership(store, host, member->cluster);
  }
  store.RemoveHost(host.id);
}

void RestoreCluster(Store& store, const HostRow& host, bool boot) {
  auto member = store.FindMember(host.id);
  if (!member) {
    if (boot) return;
    Refuse("This host has no persisted Dovra cluster configuration.");
  }
  if (member->running) return;
  member->running = true;
  member->order = NextOrder(store, member->cluster);
  store.SaveMember(*member);
  MoveMembership(store, member->cluster, host);
}

void Reboot(Store& store, HostRow& host) {
  if (auto member = FindRunningMember(store, host)) {
    member->running = false;
    store.SaveMember(*member);
    MoveMembership(store, member->cluster, host);
  }
  store.SetKnicsRunning(host.id, false);
  host.enteringMaintenance = false;
  store.SaveHost(host);
}

std::string FaultDomainId(const std::string& name) {
  return name.empty() ? std::string() : UuidOfName(name);
}

std::string FaultDomainId(const HostRow& host) {
  return host.faultDomain.empty() ? host.uuid : FaultDomainId(host.faultDomain);
}

void SetFaultDomain(Store& store, HostRow& host, const std::string& name) {
  host.faultDomain = name;
  store.SaveHost(host);
  if (const auto member = FindRunningMember(store, host)) {
    MoveGeneration(store, member->cluster, host);
  }
}

std::vector<std::string> StretchedSites(Store& store, const std::string& cluster) {
  std::set<std::string> sites;
  bool hasWitness = false;
  for (const MemberRow& member : store.ListMembers(cluster)) {
    if (member.witness) {
      hasWitness = true;
    } else {
      sites.insert(member.hostFaultDomain);
    }
  }
  if (!hasWitness || sites.size() != 2 || sites.contains("")) return {};
  return {sites.begin(), sites.end()};
}

std::string PreferredFaultDomain(Store& store, const std::string& cluster) {
  for (const MemberRow& member : store.ListMembers(cluster)) {
    if (member.witness) return member.preferredFaultDomain;
  }
  return {};
}

void SetPreferredFaultDomain(Store& store, const HostRow& host, const std::string& name) {
  auto member = RequireRunningMember(store, host);
  if (!member.witness) Refuse("This host is not a witness node.");
  const auto sites = StretchedSites(store, member.cluster);
  if (sites.empty()) Refuse("The cluster is not stretched over two fault domains.");
  RequireSite(sites, name);
  member.preferredFaultDomain = name;
  store.SaveMember(member);
  MoveGeneration(store, member.cluster, host);
}

void StartMaintenance(Store& store, HostRow& host) {
  RequireRunningMember(store, host);
  if (host.enteringMaintenance) Refuse("This host is entering maintenance mode already.");
  host.enteringMaintenance = true;
  store.SaveHost(host);
}

void CancelMaintenance(Store& store, HostRow& host) {
  if (!host.enteringMaintenance) {
    Refuse("No maintenance mode operation is in progress on this host.");
  }
  host.enteringMaintenance = false;
  store.SaveHost(host);
}

namespace {

constexpr std::size_t kMaxDatastoreName = 128;

void RequireFreeName(Store& store, const std::string& cluster, const std::string& name) {
  RequireName(name, "datastore", kMaxDatastoreName);
  for (const DatastoreRow& datastore : store.ListDatastores(cluster)) {
    if (datastore.name == name) {
      Refuse("The name \"" + name + "\" is taken by datastore " + datastore.uuid + ".");
    }
  }
}

std::string RequireCluster(Store& store, const HostRow& host) {
  return RequireRunningMember(store, host).cluster;
}

}  // namespace

std::vector<DatastoreRow> ListDatastores(Store& store, const HostRow& host) {
  const auto member = FindRunningMember(store, host);
  return member ? store.ListDatastores(member->cluster) : std::vector<DatastoreRow>();
}

DatastoreRow RequireDatastore(Store& store, const HostRow& host, const std::string& uuid) {
  const std::string canonical =
      uuid.empty() ? "" : DovraUtil::DovraUuidToString(DovraUtil::StringToDovraUuid(uuid));
  for (const DatastoreRow& datastore : store.ListDatastores(RequireCluster(store, host))) {
    if (canonical.empty() ? datastore.isDefault : datastore.uuid == canonical) return datastore;
  }
  Refuse(canonical.empty() ? "The cluster has no default datastore."
                           : "The cluster has no datastore " + canonical + ".");
}

void AddDatastore(Store& store, const HostRow& host, const std::string& uuid,
                  const std::string& name) {
  const std::string canonical = DovraUtil::DovraUuidToString(DovraUtil::StringToDovraUuid(uuid));
  const std::string cluster = RequireCluster(store, host);
  if (canonical == kNilUuid) Refuse("The nil UUID names no datastore.");
  if (store.HasDatastore(canonical)) Refuse("Datastore " + canonical + " exists already.");
  RequireFreeName(store, cluster, name);
  store.AddDatastore({canonical, cluster, name, false});
  MoveGeneration(store, cluster, host);
}

void RenameDatastore(Store& store, const HostRow& host, const std::string& uuid,
                     const std::string& name) {
  const DatastoreRow datastore = RequireDatastore(store, host, uuid);
  if (datastore.name == name) return;
  RequireFreeName(store, datastore.cluster, name);
  store.RenameDatastore(datastore.uuid, name);
  MoveGeneration(store, datastore.cluster, host);
}

void RemoveDatastore(Store& store, const HostRow& host, const std::string& uuid) {
  if (uuid.empty()) Refuse("The UUID of the datastore to be removed is missing.");
  const DatastoreRow datastore = RequireDatastore(store, host, uuid);
  if (datastore.isDefault) {
    Refuse("Datastore " + datastore.uuid + " is the default datastore; it cannot be removed.");
  }
  store.RemoveDatastore(datastore.uuid);
  MoveGeneration(store, datastore.cluster, host);
}

void ClearDatastores(Store& store, const HostRow& host) {
  const std::string cluster = RequireCluster(store, host);
  for (const DatastoreRow& datastore : store.ListDatastores(cluster)) {
    if (!datastore.isDefault) store.RemoveDatastore(datastore.uuid);
  }
  MoveGeneration(store, cluster, host);
}

}  // namespace Lab
