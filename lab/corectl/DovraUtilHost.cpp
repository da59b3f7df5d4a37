// The utilities that tell of the host, or act on it.

#include <algorithm>
#include <ctime>

#include "baselibs/Process.h"
#include "baselibs/Text.h"
#include "corectl/Clusters.h"
#include "corectl/Hosts.h"
#include "corectl/LabHost.h"
#include "corectl/Splits.h"
#include "platform/corectl/DovraUtil.h"
#include "store/Uuids.h"

namespace CoreCtl::Dovra {

using HostCtl::Dovra::DovraMemberInfo;
using Lab::HostRow;
using Lab::LabHost;
using Lab::Store;

void DovraUtil::GetInfoFromTavdir(std::vector<DovraMemberInfo>& members,
                                  std::string& localNodeState, std::string& localNodeUuid,
                                  std::string& localNodeHealthState,
                                  std::uint64_t& membershipEntryRevision,
                                  std::string& membershipUuid, std::string& masterUuid,
                                  std::string& backupUuid, std::string& maintenanceModeState) {
  LabHost::Current().Read("GetInfoFromTavdir", [&](Store& store, const HostRow& host) {
    const std::string uuid = Lab::RequireRunningMember(store, host).cluster;
    const Lab::ClusterRow cluster = Lab::RequireCluster(store, uuid);
    const Lab::Side side = Lab::SideOf(store, host, uuid);
    const Lab::Membership membership = Lab::MembershipOf(side.members);
    members.clear();
    for (const Lab::Member& member : membership.members) members.push_back({member.host.uuid});
    localNodeUuid = host.uuid;
    localNodeState = host.uuid == membership.masterUuid   ? "MASTER"
                     : host.uuid == membership.backupUuid ? "BACKUP"
                                                          : "AGENT";
    localNodeHealthState = !side.isSplit        ? "HEALTHY"
                           : side.HasMajority() ? "HEALTHY (network split, majority)"
                                                : "UNHEALTHY (network split, no majority)";
    membershipEntryRevision = static_cast<std::uint64_t>(cluster.revision);
    // Each side of a split has a membership of its own.
    membershipUuid = side.isSplit ? Lab::UuidOfName(cluster.membershipUuid + members.front().uuid)
                                  : cluster.membershipUuid;
    masterUuid = membership.masterUuid;
    backupUuid = membership.backupUuid;
    maintenanceModeState = host.enteringMaintenance ? "ENTERING" : "OFF";
  });
}

void DovraUtil::GetUnicastMode(bool& enabled) {
  // Peers that are told of each other one by one are reached that way.
  enabled = LabHost::Current().Read("GetUnicastMode", [](Store& store, const HostRow& host) {
    return !store.ListAgents(host.id).empty();
  });
}

std::string DovraUtil::GetFormattedSystemDateTime() {
  LabHost::Current().FailIfTold("GetFormattedSystemDateTime");
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char text[40];
  return std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S%z", &local) == 0 ? "" : text;
}

bool DovraUtil::IsWitnessNode() {
  return LabHost::Current().Read("IsWitnessNode", [](Store& store, const HostRow& host) {
    const auto member = Lab::FindRunningMember(store, host);
    return member && member->witness;
  });
}

bool DovraUtil::IsInStretchedCluster() {
  return LabHost::Current().Read("IsInStretchedCluster", [](Store& store, const HostRow& host) {
    const auto member = Lab::FindRunningMember(store, host);
    return member && !Lab::SitesOf(Lab::ListMembers(store, member->cluster)).empty();
  });
}

std::string DovraUtil::GetFaultDomainId() {
  return LabHost::Current().Read("GetFaultDomainId", [](Store&, const HostRow& host) {
    // A host in none is one of its own.
    return host.faultDomain.empty() ? host.uuid : Lab::FaultDomainId(host.faultDomain);
  });
}

void DovraUtil::GetPreferredFaultDomainInfo(std::string& id, std::string& name) {
  LabHost::Current().Read("GetPreferredFaultDomainInfo", [&](Store& store, const HostRow& host) {
    const auto members = Lab::ListMembers(store, Lab::RequireRunningMember(store, host).cluster);
    name = Lab::PreferredFaultDomain(members);
    id = Lab::FaultDomainId(name);
    const auto sites = Lab::SitesOf(members);
    if (!sites.empty() && std::ranges::find(sites, name) == sites.end()) {
      Lab::Refuse("The witness prefers \"" + name + "\", but the data sites are \"" +
                  BaseLibs::Join(sites, "\" and \"") + "\" now.");
    }
  });
}

void DovraUtil::DecomCancel() {
  LabHost::Current().Change(
      "DecomCancel", [](Store& store, HostRow& host) { Lab::CancelMaintenance(store, host); });
}

int DovraUtil::DovraExec(const std::string& command, const std::string& argument, bool, bool,
                         bool) {
  if (LabHost::Current().TakeFault("DovraExec")) return -1;  // it has no other way to fail
  // What the program says is for its log; the caller judges by its status.
  return BaseLibs::RunProgram({command, argument}).status;
}

}  // namespace CoreCtl::Dovra
