#include "corectl/rules/Partitions.h"

#include <algorithm>
#include <set>
#include <utility>

#include "store/Uuids.h"

namespace Lab {

namespace {

/// Returns the partition with the most data hosts of the site, of equals the one with the oldest of
/// them; an empty name stands for all sites. Null when none has any.
Partition* FindLargest(std::vector<Partition>& partitions, const std::string& site,
                       bool mayBeIsolated) {
  Partition* largest = nullptr;
  std::pair<std::int64_t, std::int64_t> most;  // number of hosts, and age of the oldest
  for (Partition& partition : partitions) {
    if (partition.group == Partition::kIsolated && !mayBeIsolated) continue;
    std::pair<std::int64_t, std::int64_t> hosts;
    for (const Member* const member : partition.members) {
      if (member->row.witness || (!site.empty() && member->host.faultDomain != site)) continue;
      if (hosts.first++ == 0) hosts.second = -member->row.joinOrder;
    }
    if (hosts.first == 0 || hosts <= most) continue;
    most = hosts;
    largest = &partition;
  }
  return largest;
}

/// Returns the partition that a running host belongs to or would join. Null when it reaches none.
Partition* FindReached(std::vector<Partition>& partitions, const Member& one, bool isStretched) {
  if (one.isIsolated) return nullptr;
  if (one.row.witness && one.host.networkGroup == 0) {
    Partition* preferred =
        isStretched ? FindLargest(partitions, one.row.preferredFaultDomain, false) : nullptr;
    return preferred ? preferred : FindLargest(partitions, "", false);
  }
  const auto known = std::ranges::find(partitions, one.host.networkGroup, &Partition::group);
  return known == partitions.end() ? nullptr : &*known;
}

/// Adds the member behind the leaders and the members that joined before it.
void Add(Partition& partition, const Member& one) {
  auto& members = partition.members;
  constexpr std::ptrdiff_t kLeaders = 2;
  auto place = members.begin() + std::min(std::ssize(members), kLeaders);
  while (place != members.end() && (*place)->row.joinOrder < one.row.joinOrder) ++place;
  members.insert(place, &one);
}

std::size_t CountVotes(const std::vector<Member>& members, const std::vector<std::string>& sites) {
  return sites.empty() ? members.size() : sites.size() + 1;  // the witness has one besides
}

}  // namespace

bool Partition::HasQuorum() const {
  return 2 * votes > allVotes && !members.front()->row.witness;
}

std::string Partition::GetVotes() const {
  return std::to_string(votes) + " of " + std::to_string(allVotes);
}

std::string Partition::GetHealth() const {
  if (!HasQuorum()) return "UNHEALTHY (" + GetVotes() + " votes, no quorum)";
  return votes == allVotes ? "HEALTHY" : "HEALTHY (" + GetVotes() + " votes)";
}

std::string Partition::GetLeader(std::size_t place) const {
  if (place >= members.size() || members[place]->row.witness) return kNilUuid;
  return members[place]->host.uuid;
}

std::string Partition::GetMembershipUuid(const std::string& clusters) const {
  return isOnly ? clusters : UuidOfName(clusters + members.front()->host.uuid);
}

std::vector<Partition> PartitionsOf(const std::vector<Member>& members) {
  const auto sites = SitesOf(members);
  std::vector<Partition> partitions;
  for (const bool isWitness : {false, true}) {
    for (const Member& member : members) {
      if (!member.Runs() || member.row.witness != isWitness) continue;
      Partition* partition = FindReached(partitions, member, !sites.empty());
      if (partition == nullptr) {
        partition = &partitions.emplace_back();
        partition->group = member.isIsolated ? Partition::kIsolated : member.host.networkGroup;
        partition->number = partitions.size();
        partition->allVotes = CountVotes(members, sites);
      }
      Add(*partition, member);
      if (sites.empty() || isWitness) ++partition->votes;
    }
  }
  for (const std::string& site : sites) {
    if (Partition* const holder = FindLargest(partitions, site, true)) ++holder->votes;
  }
  if (partitions.size() == 1) partitions.front().isOnly = true;
  return partitions;
}

Partition PartitionOf(const std::vector<Member>& members, const Member& one) {
  auto partitions = PartitionsOf(members);
  for (Partition& partition : partitions) {
    for (const Member* const member : partition.members) {
      if (member->host.id == one.host.id) return std::move(partition);
    }
  }
  const auto sites = SitesOf(members);
  Partition* const reached = one.Runs() ? FindReached(partitions, one, !sites.empty()) : nullptr;
  return reached ? std::move(*reached) : Partition{.allVotes = CountVotes(members, sites)};
}

std::vector<std::string> SitesOf(const std::vector<Member>& members) {
  std::set<std::string> sites;
  bool hasWitness = false;
  for (const Member& member : members) {
    if (member.row.witness) {
      hasWitness = true;
    } else {
      sites.insert(member.host.faultDomain);
    }
  }
  if (!hasWitness || sites.size() != 2 || sites.contains("")) return {};
  return {sites.begin(), sites.end()};
}

std::string PreferredFaultDomain(const std::vector<Member>& members) {
  const auto witness =
      std::ranges::find_if(members, [](const Member& member) { return member.row.witness; });
  return witness == members.end() ? "" : witness->row.preferredFaultDomain;
}

}  // namespace Lab
