// The utilities that read or change the host.

#include <algorithm>
#include <ctime>

#include "baselibs/Process.h"
#include "baselibs/Strings.h"
#include "corectl/rules/Hosts.h"
#include "corectl/rules/Refuse.h"
#include "corectl/session/Session.h"
#include "platform/corectl/DovraUtil.h"
#include "store/Uuids.h"

namespace CoreCtl::Dovra {

using HostCtl::Dovra::DovraMemberInfo;
using Lab::HostRow;
using Lab::Session;
using Lab::Store;

void DovraUtil::GetInfoFromTavdir(std::vector<DovraMemberInfo>& members,
                                  std::string& localNodeState, std::string& localNodeUuid,
                                  std::string& localNodeHealthState,
                                  std::uint64_t& membershipEntryRevision,
                                  std::string& membershipUuid, std::string& masterUuid,
                                  std::string& backupUuid, std::string& maintenanceModeState) {
  const Lab::ClusterView& view = Session::Current().GetClusterView("GetInfoFromTavdir");
  const auto partition = Lab::PartitionOf(view.members, {view.RequireMember(), view.host});
  members.clear();
  for (const Lab::Member* const member : partition.members) members.push_back({member->host.uuid});
  masterUuid = partition.GetLeader(0);
  backupUuid = partition.GetLeader(1);
  localNodeUuid = view.host.uuid;
  localNodeState = localNodeUuid == masterUuid   ? "MASTER"
                   : localNodeUuid == backupUuid ? "BACKUP"
                                                 : "AGENT";
  localNodeHealthState = partition.GetHealth();
  membershipEntryRevision = static_cast<std::uint64_t>(view.cluster.revision);
  membershipUuid = partition.GetMembershipUuid(view.cluster.membershipUuid);
  maintenanceModeState = view.host.enteringMaintenance ? "ENTERING" : "OFF";
}

void DovraUtil::GetUnicastMode(bool& enabled) {
  enabled = Session::Current().GetClusterView("GetUnicastMode").usesUnicast;
}

std::string DovraUtil::GetFormattedSystemDateTime() {
  Session::Current().InjectFault("GetFormattedSystemDateTime");
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char text[40];
  return std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S%z", &local) == 0 ? "" : text;
}

bool DovraUtil::IsWitnessNode() {
  const auto& member = Session::Current().GetClusterView("IsWitnessNode").member;
  return member && member->witness;
}

bool DovraUtil::IsInStretchedCluster() {
  return !Lab::SitesOf(Session::Current().GetClusterView("IsInStretchedCluster").members).empty();
}

std::string DovraUtil::GetFaultDomainId() {
  const HostRow& host = Session::Current().GetClusterView("GetFaultDomainId").host;
  // A host without a fault domain is its own.
  return host.faultDomain.empty() ? host.uuid : Lab::FaultDomainId(host.faultDomain);
}

void DovraUtil::GetPreferredFaultDomainInfo(std::string& id, std::string& name) {
  const auto& view = Session::Current().GetClusterView("GetPreferredFaultDomainInfo");
  view.RequireMember();
  name = Lab::PreferredFaultDomain(view.members);
  id = Lab::FaultDomainId(name);
  const auto sites = Lab::SitesOf(view.members);
  if (!sites.empty() && std::ranges::find(sites, name) == sites.end()) {
    Lab::Refuse("The witness prefers \"" + name + "\", but the data sites are \"" +
                BaseLibs::Join(sites, "\" and \"") + "\" now.");
  }
}

void DovraUtil::DecomCancel() {
  Session::Current().Change(
      "DecomCancel", [](Store& store, HostRow& host) { Lab::CancelMaintenance(store, host); });
}

int DovraUtil::DovraExec(const std::string& command, const std::string& argument, bool, bool,
                         bool) {
  const auto fault = Session::Current().TakeFault("DovraExec");
  const bool runs = !fault || fault->late;
  const int status = runs ? BaseLibs::RunProgram({command, argument}).status : -1;
  return fault ? -1 : status;  // DovraExec throws no fault
}

}  // namespace CoreCtl::Dovra
