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
  std::vector<const Member*> hosts;
  for (const Member* const member : partition.members) {
    const bool isOfSite = site.empty() || member->host.faultDomain == site;
    if (!member->row.witness && isOfSite) hosts.push_back(member);
  }
  return hosts;
}

/// Whether no other partition that `admits` has more of these hosts, or as many with an older one.
template <class Admits>
bool Leads(const Partition& one, const Partitions& all, const std::string& site, Admits&& admits) {
  const auto own = DataHosts(one, site);
  return !own.empty() && std::ranges::all_of(all, [&](const Partition& other) {
    const auto theirs = DataHosts(other, site);
    if (other.number == one.number || !admits(other)) return true;
    return own.size() != theirs.size() ? own.size() > theirs.size()
                                       : own.front()->row.joinOrder < theirs.front()->row.joinOrder;
  });
}

/// Whether the witness is where it was put, or else where it has to go.
bool IsWitnessInPlace(const Member& witness, const Partition& its, const Partitions& all,
                      bool isStretched) {
  const auto hosts = DataHosts(its);
  if (witness.isIsolated) return hosts.empty();
  const auto hasLink = [](const Partition& one) {
    return std::ranges::any_of(DataHosts(one), [](auto* host) { return !host->isIsolated; });
  };
  if (witness.host.networkGroup != kNotNamed) {
    return std::ranges::all_of(all, [&](const Partition& one) {
      const bool isNext =
          hasLink(one) && DataHosts(one).front()->host.networkGroup == witness.host.networkGroup;
      return isNext == (one.number == its.number) || (!isNext && hosts.empty());
    });
  }
  if (std::ranges::none_of(all, hasLink)) return hosts.empty();
  std::string site;
  if (isStretched) {
    site = witness.row.preferredFaultDomain;
    const auto hasSite = [&](const Partition& one) {
      return hasLink(one) && !DataHosts(one, site).empty();
    };
    if (std::ranges::none_of(all, hasSite)) site = site == "a" ? "b" : "a";
  }
  return hasLink(its) && Leads(its, all, site, hasLink);
}

/// Returns the first promise that the partitions of the cluster break; null when they keep all.
const char* Broken(const Cluster& cluster) {
  const Partitions all = PartitionsOf(cluster);
  std::set<std::string> sites;
  bool hasWitness = false;
  for (const Member& member : cluster) {
    if (member.row.witness)
      hasWitness = true;
    else
      sites.insert(member.host.faultDomain);
  }
  const bool isStretched = hasWitness && sites == std::set<std::string>{"a", "b"};

  std::map<const Member*, const Partition*> places;
  std::set<std::string> memberships;
  int quorums = 0;
  for (const Partition& one : all) {
    for (const Member* const member : one.members) {
      if (!places.emplace(member, &one).second) return "a member is in one partition";
    }
    const auto hosts = DataHosts(one);
    for (std::size_t place = 0; place < 2; ++place) {
      if (one.GetLeader(place) != (place < hosts.size() ? hosts[place]->host.uuid : kNilUuid)) {
        return "the oldest data hosts lead";
      }
    }
    const std::size_t leaders = std::min<std::size_t>(hosts.size(), 2);
    const auto others = std::span(one.members).subspan(leaders);
    const auto age = [](auto* member) { return member->row.joinOrder; };
    if (!std::ranges::is_sorted(hosts, {}, age) || !std::ranges::is_sorted(others, {}, age)) {
      return "members are in join order";
    }
    std::size_t votes = one.members.size();
    if (isStretched) {
      votes -= hosts.size();
      for (const std::string& site : sites)
        votes += Leads(one, all, site, [](auto&) { return true; });
    }
    if (one.votes != votes || one.allVotes != (isStretched ? 3 : cluster.size())) return "votes";
    const bool hasQuorum = !hosts.empty() && one.votes > one.allVotes - one.votes;
    if (one.HasQuorum() != hasQuorum) return "the quorum is more than half, with a data host";
    quorums += one.HasQuorum();
    const std::string count = std::to_string(votes) + " of " + std::to_string(one.allVotes);
    if (one.GetHealth() != (!hasQuorum              ? "UNHEALTHY (" + count + " votes, no quorum)"
                            : votes == one.allVotes ? "HEALTHY"
                                                    : "HEALTHY (" + count + " votes)")) {
      return "health";
    }
    memberships.insert(one.GetMembershipUuid(kNilUuid));
  }
  if (quorums > 1) return "one partition has the quorum";
  if (memberships.size() != all.size()) return "each partition has its membership";
  if (all.size() == 1 && !memberships.contains(kNilUuid)) return "a whole cluster has its own";

  for (const Member& one : cluster) {
    const bool runs = one.host.power && one.row.running;
    if (places.contains(&one) != runs) return "who runs is in a partition, and nobody else";
    if (!runs && !PartitionOf(cluster, one).members.empty()) return "who does not run sees nobody";
    if (!runs) continue;
    if (PartitionOf(cluster, one).number != places[&one]->number) return "all see the same";
    if (one.row.witness) {
      if (!IsWitnessInPlace(one, *places[&one], all, isStretched)) return "the witness's choice";
      continue;
    }
    for (const Member& other : cluster) {
      if (&one == &other || other.row.witness || !places.contains(&other)) continue;
      const bool reaches =
          !one.isIsolated && !other.isIsolated && one.host.networkGroup == other.host.networkGroup;
      if (reaches != (places[&one] == places[&other])) return "who reaches each other is together";
    }
  }
  return nullptr;
}

/// Returns the cluster in words, for a failure's message.
std::string Describe(const Cluster& cluster) {
  std::string words;
  for (const Member& member : cluster) {
    words += (member.row.witness ? "witness, prefers " + member.row.preferredFaultDomain
                                 : "data host, site \"" + member.host.faultDomain + '"') +
             ", group " + std::to_string(member.host.networkGroup) +
             (!member.host.power ? ", stopped" : "") +
             (!member.row.running ? ", not restored" : "") +
             (member.isIsolated ? ", no interface\n" : "\n");
  }
  return words;
}

/// Puts each member of the cluster into each place, and checks the cluster each time.
void Walk(Cluster& cluster, std::size_t moved = 0) {
  if (moved == cluster.size()) {
    const char* const broken = Broken(cluster);
    ASSERT_EQ(broken, nullptr) << broken << ", but not in:\n" << Describe(cluster);
    return;
  }
  for (int place = 0; place < kPlaces && !testing::Test::HasFailure(); ++place) {
    Put(cluster[moved], place);
    Walk(cluster, moved + 1);
  }
  Put(cluster[moved], kNotNamed);
}

/// Returns a cluster of data hosts at these sites, a letter each, and a witness that joined second.
Cluster MakeCluster(const std::string& sites, const std::string& preferred) {
  Cluster cluster;
  const auto add = [&](bool isWitness, const std::string& site) {
    Member& member = cluster.emplace_back();
    member.host.id = member.row.host = member.row.joinOrder = std::ssize(cluster);
    member.host.uuid = std::to_string(cluster.size());
    member.host.faultDomain = site;
    member.row.witness = isWitness;
    member.row.preferredFaultDomain = preferred;
  };
  for (const char site : sites) {
    add(false, site == '-' ? "" : std::string(1, site));
    if (cluster.size() == 1 && !preferred.empty()) add(true, preferred);
  }
  if (sites.empty()) add(true, preferred);
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
    for (const std::string preferred : {"", "a"}) {  // "" without a witness
      Cluster cluster = MakeCluster(sites, preferred);
      Walk(cluster);
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
