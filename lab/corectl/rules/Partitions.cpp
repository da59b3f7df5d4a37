#include "corectl/rules/Partitions.h"

#include <algorithm>
#include <map>
#include <set>

#include "corectl/rules/Hosts.h"
#include "corectl/rules/Refuse.h"

namespace Lab {

namespace {

bool IsRunningData(const Member& member) {
  return member.row.running && !member.row.witness;
}

/// Whether no group has running data hosts of both sites.
bool IsSplitBetweenSites(const std::vector<Member>& members) {
  std::map<std::int64_t, std::set<std::string>> sites;
  for (const Member& member : members) {
    if (IsRunningData(member)) sites[member.host.networkGroup].insert(member.host.faultDomain);
  }
  return std::ranges::all_of(sites, [](const auto& group) { return group.second.size() == 1; });
}

/// Returns the network group whose partition the witness belongs to.
std::int64_t GroupOfWitness(const std::vector<Member>& members, const Member& witness) {
  const std::int64_t own = witness.host.networkGroup;
  const auto isNextToIt = [&](const Member& member) {
    return IsRunningData(member) && member.host.networkGroup == own;
  };
  if (SitesOf(members).empty() || !IsSplitBetweenSites(members) ||
      std::ranges::none_of(members, isNextToIt)) {
    return own;
  }
  // The largest part of the preferred site; of equals, the one with the oldest host.
  std::map<std::int64_t, int> sizes;
  std::int64_t largest = own;
  for (const Member& member : members) {
    if (!IsRunningData(member)) continue;
    if (member.host.faultDomain != witness.row.preferredFaultDomain) continue;
    const std::int64_t group = member.host.networkGroup;
    if (++sizes[group] > sizes[largest]) largest = group;
  }
  return largest;
}

/// Records in every cluster that the partitions changed.
void BumpMemberships(Store& store) {
  std::set<std::string> clusters;
  for (const HostRow& host : store.List<HostRow>()) {
    const auto member = store.Find<MemberRow>(host.id);
    if (member && clusters.insert(member->cluster).second) BumpMembership(store, member->cluster);
  }
}

}  // namespace

Partition PartitionOf(std::vector<Member> members, std::int64_t networkGroup) {
  Partition partition;
  partition.allVotes = members.size();
  const auto witness =
      std::ranges::find_if(members, [](const Member& member) { return member.row.witness; });
  if (witness != members.end()) witness->host.networkGroup = GroupOfWitness(members, *witness);
  partition.isSplit = std::erase_if(members, [=](const Member& member) {
                        return member.host.networkGroup != networkGroup;
                      }) != 0;
  std::erase_if(members, [](const Member& member) { return !member.row.running; });
  partition.votes = members.size();
  partition.members = std::move(members);
  return partition;
}

Partition PartitionOf(std::vector<Member> members, const HostRow& host) {
  const auto self =
      std::ranges::find(members, host.id, [](const Member& member) { return member.row.host; });
  const bool isWitness = self != members.end() && self->row.witness;
  const std::int64_t group = isWitness ? GroupOfWitness(members, *self) : host.networkGroup;
  return PartitionOf(std::move(members), group);
}

Partition PartitionOf(Store& store, const HostRow& host, const std::string& cluster) {
  return PartitionOf(ListMembers(store, cluster), host);
}

void RequireQuorum(Store& store, const HostRow& host, const std::string& cluster) {
  const Partition partition = PartitionOf(store, host, cluster);
  if (partition.HasQuorum()) return;
  Refuse("The network is split, and this partition of the cluster has " +
         std::to_string(partition.votes) + " of " + std::to_string(partition.allVotes) +
         " votes; what the cluster shares can only be changed where the quorum is.");
}

void SplitNetwork(Store& store, const std::vector<std::string>& hosts) {
  std::int64_t group = 0;
  for (const HostRow& host : store.List<HostRow>()) group = std::max(group, host.networkGroup);
  for (const std::string& name : hosts) {
    HostRow host = RequireHost(store, name);
    host.networkGroup = group + 1;
    store.Save(host);
  }
  const auto isNamed = [=](const HostRow& host) { return host.networkGroup == group + 1; };
  if (std::ranges::all_of(store.List<HostRow>(), isNamed)) {
    Refuse("No host is left to be cut off from; name some of the lab's hosts, not all.");
  }
  BumpMemberships(store);
}

void HealNetwork(Store& store) {
  for (HostRow& host : store.List<HostRow>()) {
    host.networkGroup = 0;
    store.Save(host);
  }
  BumpMemberships(store);
}

}  // namespace Lab
