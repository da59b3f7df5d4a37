// Every small cluster, held against what its hosts may rely on.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <span>

#include "corectl/rules/Partitions.h"
#include "store/Uuids.h"

namespace Lab {

namespace {

using Cluster = std::vector<Member>;
using Partitions = std::vector<Partition>;

enum Place { kNotNamed, kOneGroup, kOtherGroup, kStopped, kNotRestored, kNoInterface, kPlaces };

void Put(Member& member, int place) {
  member.host.power = place != kStopped;
  member.row.running = place != kNotRestored;
  member.isIsolated = place == kNoInterface;
  member.host.networkGroup = place <= kOtherGroup ? place : kNotNamed;
}

/// Returns the data hosts, oldest first, of all sites or of one.
std::vector<const Member*> DataHosts(const Partition& partition, const std::string& site = "") {
  auto hosts = partition.members;
  std::erase_if(hosts, [&](const Member* member) {
    return member->row.witness || (!site.empty() && member->host.faultDomain != site);
  });
  return hosts;
}

/// Whether none of the others has more hosts of the site, or as many with an older one.
bool Leads(const Partition& one, const Partitions& others, const std::string& site) {
  const auto own = DataHosts(one, site);
  return !own.empty() && std::ranges::all_of(others, [&](const Partition& other) {
    const auto theirs = DataHosts(other, site);
    if (other.number == one.number || own.size() != theirs.size()) {
      return own.size() >= theirs.size();
    }
    return own.front()->row.joinOrder < theirs.front()->row.joinOrder;
  });
}

/// Whether the witness is where it was put, or else in the best partition that it reaches.
bool IsInPlace(const Member& witness, const Partition& its, Partitions reached, bool isStretched) {
  const std::int64_t group = witness.host.networkGroup;
  std::erase_if(reached, [&](const Partition& one) {
    const auto hosts = DataHosts(one);
    return witness.isIsolated || hosts.empty() || hosts.front()->isIsolated ||
           (group != kNotNamed && hosts.front()->host.networkGroup != group);
  });
  if (reached.empty()) return DataHosts(its).empty();
  const auto hasSite = [](const Partition& one) { return !DataHosts(one, "a").empty(); };
  const std::string site = !isStretched                            ? ""
                           : std::ranges::any_of(reached, hasSite) ? "a"  // which it prefers
                                                                   : "b";
  return std::ranges::count(reached, its.number, &Partition::number) == 1 &&
         Leads(its, reached, site);
}

/// Returns the first promise that the partitions of the cluster break; null when they keep all.
const char* Broken(const Cluster& cluster) {
  const Partitions all = PartitionsOf(cluster);
  std::set<std::string> sites;
  for (const Member& member : cluster) {
    if (!member.row.witness) sites.insert(member.host.faultDomain);
  }
  const bool hasWitness = std::ranges::any_of(cluster, [](auto& one) { return one.row.witness; });
  const bool isStretched = hasWitness && sites == std::set<std::string>{"a", "b"};

  std::map<const Member*, const Partition*> places;
  std::set<std::string> memberships;
  for (const Partition& one : all) {
    for (const Member* const member : one.members) {
      if (!places.emplace(member, &one).second) return "a member is in one partition";
    }
    const auto hosts = DataHosts(one);
    const auto others = std::span(one.members).subspan(std::min<std::size_t>(hosts.size(), 2));
    const auto age = [](const Member* member) { return member->row.joinOrder; };
    for (std::size_t place = 0; place < 2; ++place) {
      if (one.GetLeader(place) != (place < hosts.size() ? hosts[place]->host.uuid : kNilUuid)) {
        return "the oldest data hosts lead";
      }
    }
    if (!std::ranges::is_sorted(hosts, {}, age) || !std::ranges::is_sorted(others, {}, age)) {
      return "members are in join order";
    }
    std::size_t votes = one.members.size() - (isStretched ? hosts.size() : 0);
    for (const std::string& site : sites) votes += isStretched && Leads(one, all, site) ? 1 : 0;
    if (one.votes != votes || one.allVotes != (isStretched ? 3 : cluster.size())) return "votes";
    const bool hasQuorum = !hosts.empty() && votes > one.allVotes - votes;
    const std::string counted = std::to_string(votes) + " of " + std::to_string(one.allVotes);
    if (one.GetHealth() != (!hasQuorum              ? "UNHEALTHY (" + counted + " votes, no quorum)"
                            : votes == one.allVotes ? "HEALTHY"
                                                    : "HEALTHY (" + counted + " votes)")) {
      return "the quorum is more than half, with a data host";
    }
    memberships.insert(one.GetMembershipUuid(kNilUuid));
  }
  if (std::ranges::count_if(all, &Partition::HasQuorum) > 1) return "one partition has the quorum";
  if (memberships.size() != all.size()) return "each partition has its membership";
  if (all.size() == 1 && !memberships.contains(kNilUuid)) return "a whole cluster has its own";

  for (const Member& one : cluster) {
    const Partition shown = PartitionOf(cluster, one);
    const bool runs = one.host.power && one.row.running;
    if (places.contains(&one) != runs) return "who runs is in a partition, and nobody else";
    if (shown.number != (runs ? places[&one]->number : 0)) return "all see the same";
    if (!runs) continue;
    if (one.row.witness && !IsInPlace(one, shown, all, isStretched)) return "the witness's place";
    for (const Member& other : cluster) {
      if (&one == &other || one.row.witness || other.row.witness || !places.contains(&other)) {
        continue;
      }
      const bool reaches =
          !one.isIsolated && !other.isIsolated && one.host.networkGroup == other.host.networkGroup;
      if (reaches != (places[&one] == places[&other])) return "who reaches each other is together";
    }
  }
  return nullptr;
}

/// Puts each member of the cluster into each place, and checks the cluster each time.
void Walk(Cluster& cluster, const std::string& words, std::size_t moved = 0) {
  if (moved == cluster.size()) {
    const char* const broken = Broken(cluster);
    ASSERT_EQ(broken, nullptr) << broken << ", but not in: " << words;
    return;
  }
  for (int place = 0; place < kPlaces && !testing::Test::HasFailure(); ++place) {
    Put(cluster[moved], place);
    const char* const kNames[] = {"", "@1", "@2", " stopped", " not restored", " no interface"};
    const Member& member = cluster[moved];
    Walk(cluster,
         words + (member.row.witness ? "witness" : "host of " + member.host.faultDomain) +
             kNames[place] + ", ",
         moved + 1);
  }
  Put(cluster[moved], kNotNamed);
}

/// Returns a cluster of data hosts at these sites, a letter each, and perhaps a witness that joined
/// second and prefers site "a".
Cluster MakeCluster(const std::string& sites, bool hasWitness) {
  Cluster cluster;
  const auto add = [&](bool isWitness, const std::string& site) {
    Member& member = cluster.emplace_back();
    member.host.id = member.row.host = member.row.joinOrder = std::ssize(cluster);
    member.host.uuid = std::to_string(cluster.size());
    member.host.faultDomain = site;
    member.row.witness = isWitness;
    member.row.preferredFaultDomain = "a";
  };
  for (const char site : sites) {
    add(false, site == '-' ? "" : std::string(1, site));
    if (cluster.size() == 1 && hasWitness) add(true, "a");
  }
  if (sites.empty()) add(true, "");
  return cluster;
}

TEST(Partitions, KeepTheirPromisesInEverySmallCluster) {
  std::vector<std::string> clusters = {"", "-a", "-aa", "abc"};
  for (std::size_t hosts = 1; hosts <= 4; ++hosts) {
    for (unsigned bits = 0; bits < 1U << hosts; ++bits) {
      std::string& sites = clusters.emplace_back(hosts, 'a');
      for (std::size_t host = 0; host < hosts; ++host) {
        if ((bits >> host) % 2 != 0) sites[host] = 'b';
      }
    }
  }
  for (const std::string& sites : clusters) {
    for (const bool hasWitness : {false, true}) {
      Cluster cluster = MakeCluster(sites, hasWitness);
      Walk(cluster, "");
      if (HasFailure()) return;
      const Partitions whole = PartitionsOf(cluster);  // everything is mended
      ASSERT_EQ(whole.size(), 1U);
      EXPECT_EQ(whole[0].members.size(), cluster.size());
      EXPECT_EQ(whole[0].GetHealth() == "HEALTHY", !sites.empty());
    }
  }
}

}  // namespace

}  // namespace Lab
