// Membership and fault domains.

#include <algorithm>

#include "corectl/info/LabInfo.h"
#include "corectl/rules/CanonicalUuid.h"
#include "corectl/rules/Clusters.h"
#include "corectl/rules/Refuse.h"
#include "platform/corectl/DovraUtil.h"
#include "store/Uuids.h"

namespace Lab {

using CoreCtl::Dovra::DovraUtil;
using HostCtl::Dovra::DovraClusterConfig;
using HostCtl::Dovra::DovraConfigGeneration;
using HostCtl::Dovra::Uuid;

namespace {

constexpr const char* kDefaultDatastoreName = "dovraDatastore";

/// Refuses when the host is in a cluster. A membership that was not restored is given up.
void RequireOutside(Store& store, const HostRow& host) {
  const auto member = store.Find<MemberRow>(host.id);
  if (!member) return;
  if (member->running) Refuse("This host is in cluster " + member->cluster + " already.");
  RemoveMember(store, host, member->cluster);
}

/// Makes the cluster with this host and the default datastore.
void Found(Store& store, const HostRow& host, const std::string& uuid) {
  if (uuid == kNilUuid) Refuse("The nil UUID names no cluster.");
  if (store.Find<ClusterRow>(uuid)) Refuse("Cluster " + uuid + " exists already.");
  RequireOutside(store, host);
  store.Save(ClusterRow{.uuid = uuid});
  store.Save(DatastoreRow{
      .uuid = NewUuid(), .cluster = uuid, .name = kDefaultDatastoreName, .isDefault = true});
  AddMember(store, host, MemberRow{.cluster = uuid});
  BumpGeneration(store, uuid, host);
}

/// Refuses a fault domain that is not one of the two data sites.
void RequireSite(const std::vector<std::string>& sites, const std::string& name) {
  if (std::ranges::find(sites, name) != sites.end()) return;
  Refuse("\"" + name + "\" is not a fault domain of a data site; these are \"" + sites.front() +
         "\" and \"" + sites.back() + "\".");
}

/// Puts the host into the fault domain; into none if the name is empty.
void MoveToFaultDomain(Store& store, HostRow& host, const std::string& name) {
  if (host.faultDomain == name) return;
  const auto member = store.Find<MemberRow>(host.id);
  if (member) RequireWhole(store, host, member->cluster);
  host.faultDomain = name;
  store.Save(host);
  if (member) BumpGeneration(store, member->cluster, host);
}

}  // namespace

const DovraClusterConfig& LabInfo::GetClusterConfig() {
  const auto& member = host_.GetClusterView("GetClusterConfig").member;
  config_ = member ? DovraClusterConfig{true, member->cluster} : DovraClusterConfig{};
  return config_;
}

bool LabInfo::IsLocalNodeWitness() {
  return host_.GetClusterView("IsLocalNodeWitness").RequireMember().witness;
}

DovraConfigGeneration LabInfo::GetConfigGeneration() {
  const ClusterView& view = host_.GetClusterView("GetConfigGeneration");
  view.RequireMember();
  return {view.cluster.generationUuid, static_cast<std::uint64_t>(view.cluster.generation),
          static_cast<std::uint64_t>(view.cluster.generationTime)};
}

void LabInfo::CreateCluster(const std::string& uuid, bool, bool) {
  host_.Change("CreateCluster",
               [&](Store& store, const HostRow& host) { Found(store, host, CanonicalUuid(uuid)); });
}

// A host of the lab has joined when the call returns: there is nothing to wait for.
void LabInfo::JoinCluster(const Uuid& cluster, bool asWitness,
                          const std::string& preferredFaultDomain, bool, bool) {
  host_.Change("JoinCluster", [&](Store& store, const HostRow& host) {
    const std::string uuid = DovraUtil::DovraUuidToString(cluster);
    if (!store.Find<ClusterRow>(uuid)) {
      if (asWitness) Refuse("There is no cluster " + uuid + " for a witness to join.");
      return Found(store, host, uuid);
    }
    const auto own = store.Find<MemberRow>(host.id);
    const bool joinsAgain = own && own->cluster == uuid && !own->running;  // without a restore
    if (!joinsAgain) RequireOutside(store, host);
    for (const MemberRow& member : store.List<MemberRow>(uuid)) {
      if (asWitness && member.witness && member.host != host.id) {
        Refuse("Cluster " + uuid + " has a witness already.");
      }
    }
    const MemberRow member = {
        .cluster = uuid, .witness = asWitness, .preferredFaultDomain = preferredFaultDomain};
    const Quorum before = RequireQuorum(store, host, uuid, &member);
    AddMember(store, host, member);
    if (RequireQuorum(store, host, uuid).others != before.others) {
      Refuse("The network is split, and the join would take the quorum from a partition with " +
             before.votes + " votes.");
    }
    BumpGeneration(store, uuid, host);
    const auto sites = SitesOf(ListMembers(store, uuid));
    if (asWitness && !sites.empty()) RequireSite(sites, preferredFaultDomain);
  });
}

void LabInfo::LeaveCluster(bool) {
  host_.Change("LeaveCluster", [](Store& store, HostRow& host) {
    RemoveMember(store, host, RequireRunningMember(store, host).cluster);
    host.enteringMaintenance = false;
    store.Save(host);
  });
}

void LabInfo::RestoreClusterConfig(bool boot) {
  host_.Change("RestoreClusterConfig", [&](Store& store, const HostRow& host) {
    const auto member = store.Find<MemberRow>(host.id);
    if (!member) {
      if (boot) return;  // hosts outside any cluster boot, too
      Refuse("This host has no persisted Dovra cluster configuration.");
    }
    if (!member->running) AddMember(store, host, *member);
  });
}

void LabInfo::SetFaultDomain(const std::string& name) {
  host_.Change("SetFaultDomain",
               [&](Store& store, HostRow& host) { MoveToFaultDomain(store, host, name); });
}

void LabInfo::ResetFaultDomain() {
  host_.Change("ResetFaultDomain",
               [](Store& store, HostRow& host) { MoveToFaultDomain(store, host, ""); });
}

std::string LabInfo::GetFaultDomainName() {
  return host_.GetClusterView("GetFaultDomainName").host.faultDomain;
}

void LabInfo::SetPreferredFaultDomain(const std::string& name) {
  host_.Change("SetPreferredFaultDomain", [&](Store& store, const HostRow& host) {
    MemberRow member = RequireRunningMember(store, host);
    if (!member.witness) Refuse("This host is not a witness node.");
    if (member.preferredFaultDomain == name) return;
    const auto sites = SitesOf(ListMembers(store, member.cluster));
    if (sites.empty()) Refuse("The cluster is not stretched over two fault domains.");
    RequireSite(sites, name);
    RequireWhole(store, host, member.cluster);
    member.preferredFaultDomain = name;
    store.Save(member);
    BumpGeneration(store, member.cluster, host);
  });
}

}  // namespace Lab
