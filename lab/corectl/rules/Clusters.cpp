#include "corectl/rules/Clusters.h"

#include <algorithm>
#include <chrono>
#include <limits>

#include "corectl/rules/Refuse.h"
#include "store/Uuids.h"

namespace Lab {

namespace {

std::int64_t MillisecondsNow() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

/// Pairs each row with its host. Uses `known` for that host's row instead of reading the store.
std::vector<Member> WithHosts(Store& store, std::vector<MemberRow> rows, const HostRow& known) {
  std::vector<Member> members;
  for (MemberRow& row : rows) {
    auto host = row.host == known.id ? known : store.Find<HostRow>(row.host);
    if (!host) store.FailDamaged("cluster " + row.cluster + " has a host that is none");
    const bool isIsolated = store.IsIsolated(row.host);
    members.push_back({std::move(row), *std::move(host), isIsolated});
  }
  return members;
}

void Increment(Store& store, std::int64_t& count) {
  if (count == std::numeric_limits<std::int64_t>::max()) {
    store.FailDamaged("a cluster's count is " + std::to_string(count));
  }
  ++count;
}

}  // namespace

std::vector<Member> ListMembers(Store& store, const std::string& cluster) {
  return WithHosts(store, store.List<MemberRow>(cluster), HostRow());
}

std::vector<Member> ListMembers(Store& store, const HostRow& host) {
  return WithHosts(store, store.ListPeers(host.id), host);
}

std::optional<MemberRow> FindRunningMember(Store& store, const HostRow& host) {
  auto member = store.Find<MemberRow>(host.id);
  if (member && !member->running) member.reset();
  return member;
}

MemberRow RequireRunningMember(Store& store, const HostRow& host) {
  auto member = FindRunningMember(store, host);
  if (!member) Refuse(kNoMember);
  return *member;
}

ClusterRow RequireCluster(Store& store, const std::string& uuid) {
  auto cluster = store.Find<ClusterRow>(uuid);
  if (!cluster) store.FailDamaged("there is no cluster " + uuid + ", but it has a host");
  if (cluster->revision < 0 || cluster->generation < 0 || cluster->generationTime < 0) {
    store.FailDamaged("cluster " + uuid + " has a negative count or time");
  }
  return *cluster;
}

Quorum RequireQuorum(Store& store, const HostRow& host, const std::string& cluster,
                     const MemberRow* joining) {
  auto members = ListMembers(store, cluster);
  Member one{joining ? *joining : MemberRow{}, host, store.IsIsolated(host.id)};
  one.row.running = joining != nullptr;
  const auto own = std::ranges::find(members, host.id, [](const Member& m) { return m.host.id; });
  if (joining && own != members.end()) own->row.running = true;
  const Partition partition = PartitionOf(members, one);
  if (!partition.HasQuorum()) {
    Refuse(
        "There is no quorum: this host reaches " + partition.GetVotes() +
        " votes of the cluster. Joining, datastores and fault domains need more than half of them, "
        "and a data host.");
  }
  Quorum quorum{partition.GetVotes(), {}};
  for (const Member* const member : partition.members) {
    if (member->row.witness || member->host.id == host.id) continue;
    quorum.others.push_back(member->host.uuid);
  }
  return quorum;
}

void RequireWhole(Store& store, const HostRow& host, const std::string& cluster) {
  const std::string votes = RequireQuorum(store, host, cluster).votes;
  const auto members = ListMembers(store, cluster);
  const auto groupOf = [](const Member& member) { return member.host.networkGroup; };
  if (std::ranges::count(members, groupOf(members.front()), groupOf) == std::ssize(members)) return;
  Refuse("The network is split; this host reaches " + votes +
         " votes of the cluster, but fault domains cannot be changed before the split is healed.");
}

void BumpGeneration(Store& store, const std::string& cluster, const HostRow& host) {
  ClusterRow row = RequireCluster(store, cluster);
  Increment(store, row.generation);
  row.generationUuid = host.uuid;
  row.generationTime = MillisecondsNow();
  store.Save(row);
}

void BumpMembership(Store& store, const std::string& cluster) {
  ClusterRow row = RequireCluster(store, cluster);
  Increment(store, row.revision);
  row.membershipUuid = NewUuid();
  store.Save(row);
}

void AddMember(Store& store, const HostRow& host, MemberRow member) {
  const auto others = store.List<MemberRow>(member.cluster);
  member.host = host.id;
  member.running = true;
  member.joinOrder = others.empty() ? 0 : others.back().joinOrder;
  Increment(store, member.joinOrder);
  store.Save(member);
  BumpMembership(store, member.cluster);
}

void RemoveMember(Store& store, const HostRow& host, const std::string& cluster) {
  store.Remove<MemberRow>(host.id);
  if (store.List<MemberRow>(cluster).empty()) {
    store.Remove<ClusterRow>(cluster);
  } else {
    BumpMembership(store, cluster);
    BumpGeneration(store, cluster, host);
  }
}

std::string FaultDomainId(const std::string& name) {
  return name.empty() ? std::string() : UuidOfName(name);
}

}  // namespace Lab
