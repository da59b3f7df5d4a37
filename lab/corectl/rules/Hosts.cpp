#include "corectl/rules/Hosts.h"

#include <algorithm>
#include <set>

#include "baselibs/Strings.h"
#include "corectl/rules/Clusters.h"
#include "corectl/rules/Disks.h"
#include "corectl/rules/Refuse.h"
#include "hostroot/HostRoot.h"
#include "store/LabDirectory.h"
#include "store/Uuids.h"

namespace Lab {

namespace {

constexpr struct {
  const char* device;
  bool flash;
} kDisks[] = {
    {"mpx.xhba1:C0:T0:L0", true},  {"mpx.xhba1:C0:T1:L0", true},  {"mpx.xhba2:C0:T0:L0", false},
    {"mpx.xhba2:C0:T1:L0", false}, {"mpx.xhba2:C0:T2:L0", false}, {"mpx.xhba2:C0:T3:L0", false},
};

void RequirePower(const HostRow& host) {
  if (!host.power) Refuse("Host " + host.name + " is powered off.");
}

/// Moves the hosts to a network group, and records that their clusters' partitions changed.
void MoveToGroup(Store& store, std::vector<HostRow> hosts, std::int64_t group) {
  std::set<std::string> clusters;
  for (HostRow& host : hosts) {
    if (host.networkGroup == group) continue;
    host.networkGroup = group;
    store.Save(host);
    const auto member = store.Find<MemberRow>(host.id);
    if (member && clusters.insert(member->cluster).second) BumpMembership(store, member->cluster);
  }
}

}  // namespace

std::string UnknownHostMessage(Store& store, const std::string& name) {
  const std::string names = BaseLibs::Join(store.List<HostRow>(), ", ", &HostRow::name);
  return "no host \"" + name + "\" in this lab; " +
         (names.empty() ? "it has none (add one: lab host add --name NAME)"
                        : "its hosts are: " + names);
}

HostRow RequireHost(Store& store, const std::string& name) {
  auto host = store.FindHost(name);
  if (!host) Refuse(UnknownHostMessage(store, name));
  return *std::move(host);
}

void ResetLab(Store& store, const std::filesystem::path& files) {
  for (const HostRow& host : store.List<HostRow>()) RequireOwn(RootOf(store.GetDirectory(), host));
  store.Clear();
  AddHost(store, kFirstHost, files);
}

void AddHost(Store& store, const std::string& name, const std::filesystem::path& files) {
  store.Save(HostRow{.name = name, .uuid = NewUuid()});
  const HostRow host = *store.FindHost(name);
  for (const auto& [device, flash] : kDisks) {
    store.Save(DiskRow{.host = host.id, .device = device, .flash = flash});
  }
  MakeRoot(store, host, files);
}

std::string RemoveHost(Store& store, const HostRow& host) {
  RequireOwn(RootOf(store.GetDirectory(), host));
  const auto member = store.Find<MemberRow>(host.id);
  if (member) RemoveMember(store, host, member->cluster);
  store.Remove<HostRow>(host.id);
  if (!member) return {};
  const auto members = ListMembers(store, member->cluster);
  if (members.empty()) return "Cluster " + member->cluster + " has no host left.";
  const auto partitions = PartitionsOf(members);
  const auto largest = std::ranges::max_element(partitions, {}, &Partition::votes);
  const Partition left = largest == partitions.end() ? PartitionOf(members, {}) : *largest;
  return "Cluster " + member->cluster + ": " + left.GetVotes() + " votes remain" +
         (left.HasQuorum() ? "." : ", no quorum.");
}

void Stop(Store& store, HostRow& host) {
  RequirePower(host);
  if (auto member = FindRunningMember(store, host)) {
    member->running = false;
    store.Save(*member);
    BumpMembership(store, member->cluster);
  }
  store.SetKnicsRunning(host.id, false);
  host.enteringMaintenance = host.power = false;
  store.Save(host);
}

void Start(Store& store, HostRow& host) {
  if (host.power) Refuse("Host " + host.name + " is powered on already.");
  host.power = true;
  store.Save(host);
  AutoClaim(store, host);
}

void Reboot(Store& store, HostRow& host) {
  Stop(store, host);
  Start(store, host);
}

void SplitNetwork(Store& store, const std::vector<std::string>& hosts) {
  const auto all = store.List<HostRow>();
  std::int64_t group = 1;
  for (const HostRow& host : all) group = std::max(group, host.networkGroup + 1);
  std::vector<HostRow> named;
  named.reserve(hosts.size());
  for (const std::string& name : hosts) named.push_back(RequireHost(store, name));
  if (std::set<std::string>(hosts.begin(), hosts.end()).size() == all.size()) {
    Refuse("No host is left to be cut off from; name some of the lab's hosts, not all.");
  }
  MoveToGroup(store, named, group);
}

void HealNetwork(Store& store) {
  MoveToGroup(store, store.List<HostRow>(), 0);
}

void StartMaintenance(Store& store, HostRow& host) {
  RequirePower(host);
  RequireRunningMember(store, host);
  if (host.enteringMaintenance) Refuse("This host is entering maintenance mode already.");
  host.enteringMaintenance = true;
  store.Save(host);
}

void CancelMaintenance(Store& store, HostRow& host) {
  if (!host.enteringMaintenance) {
    Refuse("No maintenance mode operation is in progress on this host.");
  }
  host.enteringMaintenance = false;
  store.Save(host);
}

}  // namespace Lab
