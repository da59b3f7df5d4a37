#include "autocli/CompletionValues.h"

#include <algorithm>
#include <functional>
#include <string_view>
#include <utility>

#include "autocli/Program.h"
#include "corectl/rules/Addresses.h"
#include "corectl/rules/Disks.h"
#include "corectl/session/Session.h"
#include "corectl/values/TrafficTypes.h"

namespace AutoCliProgram {

using CliTools::Candidate;
using Lab::AgentRow;
using Lab::DatastoreRow;
using Lab::DiskRow;
using Lab::FaultRow;
using Lab::HostRow;
using Lab::MemberRow;
using Lab::Store;

namespace {

using Candidates = std::vector<Candidate>;

/// Returns a candidate for each row with a value.
template <auto kText, auto kDescription, class Row>
Candidates Collect(const std::vector<Row>& rows) {
  Candidates candidates;
  for (const Row& row : rows) {
    const std::string& text = std::invoke(kText, row);
    if (!text.empty()) candidates.push_back({text, std::invoke(kDescription, row)});
  }
  return candidates;
}

template <auto kText, auto kDescription>
Candidates Hosts(Store& store, const HostRow&) {
  return Collect<kText, kDescription>(store.List<HostRow>());
}

template <auto kText, auto kDescription>
Candidates Agents(Store& store, const HostRow& host) {
  return Collect<kText, kDescription>(store.List<AgentRow>(host.id));
}

Candidates Datastores(Store& store, const HostRow& host) {
  const auto member = store.Find<MemberRow>(host.id);
  if (!member) return {};
  return Collect<&DatastoreRow::uuid, &DatastoreRow::name>(
      store.List<DatastoreRow>(member->cluster));
}

Candidates Clusters(Store& store, const HostRow&) {
  Candidates candidates;
  for (const HostRow& host : store.List<HostRow>()) {
    const auto member = store.Find<MemberRow>(host.id);
    if (!member) continue;
    const auto known = std::ranges::find(candidates, member->cluster, &Candidate::text);
    if (known == candidates.end()) {
      candidates.push_back({member->cluster, "cluster of " + host.name});
    } else {
      known->description += ", " + host.name;
    }
  }
  return candidates;
}

Candidates FaultMessages(Store& store, const HostRow&) {
  Candidates candidates;
  for (const HostRow& host : store.List<HostRow>()) {
    for (auto& fault : store.List<FaultRow>(host.id)) {
      candidates.push_back({std::move(fault.message), fault.operation + " on " + host.name});
    }
  }
  return candidates;
}

std::string UseOf(const DiskRow& disk) {
  if (!disk.IsClaimed()) return {};
  return disk.IsCache() ? "cache device" : "in group " + disk.groupName;
}

template <auto kFits, auto kText = &DiskRow::device, auto kDescription = UseOf>
Candidates Disks(Store& store, const HostRow& host) {
  std::vector<DiskRow> disks = store.List<DiskRow>(host.id);
  std::erase_if(disks, [](const DiskRow& disk) { return !std::invoke(kFits, disk); });
  return Collect<kText, kDescription>(disks);
}

bool IsAny(const DiskRow&) {
  return true;
}

bool IsEmptyFlash(const DiskRow& disk) {
  return !disk.IsClaimed() && !disk.IsCapacityKind();
}

bool IsEmptyCapacity(const DiskRow& disk) {
  return !disk.IsClaimed() && disk.IsCapacityKind();
}

template <auto& kNames>
Candidates Constants() {
  Candidates candidates;
  for (const auto& name : kNames) candidates.push_back({std::string(name), ""});
  return candidates;
}

Candidates EvacuationModes() {
  Candidates candidates = Constants<Lab::kEvacuationModes>();
  for (Candidate& mode : candidates)
    mode.text.front() += 'a' - 'A';  // commands take noAction, not NoAction
  return candidates;
}

/// One list; a constant one needs no lab.
struct ValueList {
  std::string_view name;
  Candidates (*inLab)(Store&, const HostRow&);
  Candidates (*constant)() = nullptr;
};

constexpr ValueList kLists[] = {
    {"hosts", Hosts<&HostRow::name, &HostRow::uuid>},
    {"host-uuids", Hosts<&HostRow::uuid, &HostRow::name>},
    {"fault-domains", Hosts<&HostRow::faultDomain, &HostRow::name>},
    {"clusters", Clusters},
    {"datastores", Datastores},
    {"interfaces", nullptr, Constants<Lab::kInterfaces>},
    {"agent-uuids", Agents<&AgentRow::nodeUuid, &AgentRow::address>},
    {"agent-addresses", Agents<&AgentRow::address, &AgentRow::nodeUuid>},
    {"disks", Disks<IsAny>},
    {"flash-disks", Disks<&DiskRow::flash>},
    {"empty-flash-disks", Disks<IsEmptyFlash>},
    {"empty-capacity-disks", Disks<IsEmptyCapacity>},
    {"cache-disks", Disks<&DiskRow::IsCache>},
    {"claimed-disks", Disks<&DiskRow::IsClaimed>},
    {"claimed-disk-uuids", Disks<&DiskRow::IsClaimed, &DiskRow::uuid, &DiskRow::device>},
    {"fault-messages", FaultMessages},
    {"evacuation-modes", nullptr, EvacuationModes},
    {"traffic-types", nullptr, Constants<Lab::kTrafficTypes>},
};

}  // namespace

Candidates CompletionValues(std::string_view list, const Options& options) {
  const auto* const known = std::ranges::find(kLists, list, &ValueList::name);
  if (known == std::end(kLists)) return {};
  if (known->constant != nullptr) return known->constant();
  SelectLab(options);
  if (!Lab::IsMade()) return {};
  Store& store = Lab::OpenStore();
  // An unknown host has nothing; what belongs to the whole lab is offered all the same.
  return known->inLab(store, store.FindHost(Lab::Selected().host).value_or(HostRow()));
}

}  // namespace AutoCliProgram
