#include "autocli/LabValues.h"

#include <algorithm>
#include <functional>
#include <string_view>
#include <utility>

#include "autocli/Run.h"
#include "corectl/rules/Disks.h"
#include "corectl/session/LabHost.h"

namespace AutoCliProgram {

using CliTools::Candidate;
using Lab::AgentRow;
using Lab::DatastoreRow;
using Lab::DiskRow;
using Lab::FaultRow;
using Lab::HostRow;
using Lab::InterfaceRow;
using Lab::MemberRow;
using Lab::Store;

namespace {

using Candidates = std::vector<Candidate>;

template <auto kText, auto kDescription>
Candidates Hosts(Store& store, const HostRow&) {
  Candidates candidates;
  for (const HostRow& host : store.List<HostRow>()) {
    if (!(host.*kText).empty()) candidates.push_back({host.*kText, host.*kDescription});
  }
  return candidates;
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

Candidates Datastores(Store& store, const HostRow& host) {
  Candidates candidates;
  const auto member = store.Find<MemberRow>(host.id);
  if (!member) return candidates;
  for (const auto& datastore : store.List<DatastoreRow>(member->cluster)) {
    candidates.push_back({datastore.uuid, datastore.name});
  }
  return candidates;
}

Candidates Interfaces(Store& store, const HostRow& host) {
  Candidates candidates;
  for (auto& interface : store.List<InterfaceRow>(host.id)) {
    candidates.push_back({std::move(interface.name), ""});
  }
  return candidates;
}

Candidates Faults(Store& store, const HostRow&) {
  Candidates candidates;
  for (const HostRow& host : store.List<HostRow>()) {
    for (auto& fault : store.List<FaultRow>(host.id)) {
      candidates.push_back({std::move(fault.message), fault.operation + " on " + host.name});
    }
  }
  return candidates;
}

template <auto kText, auto kDescription>
Candidates Agents(Store& store, const HostRow& host) {
  Candidates candidates;
  for (const auto& agent : store.List<AgentRow>(host.id)) {
    candidates.push_back({agent.*kText, agent.*kDescription});
  }
  return candidates;
}

template <auto kText, auto kDescription, auto kFits>
Candidates Disks(Store& store, const HostRow& host) {
  Candidates candidates;
  for (const DiskRow& disk : store.List<DiskRow>(host.id)) {
    if (std::invoke(kFits, disk)) candidates.push_back({disk.*kText, disk.*kDescription});
  }
  return candidates;
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

template <auto kFits>
constexpr auto kDevices = Disks<&DiskRow::device, &DiskRow::groupName, kFits>;
constexpr auto kDiskUuids = Disks<&DiskRow::uuid, &DiskRow::device, &DiskRow::IsClaimed>;
constexpr auto kHostNames = Hosts<&HostRow::name, &HostRow::uuid>;
constexpr auto kFaultDomains = Hosts<&HostRow::faultDomain, &HostRow::name>;

Candidates EvacuationModes() {
  Candidates candidates;
  for (const std::string_view mode : Lab::kEvacuationModes) {
    candidates.push_back({std::string(mode), ""});
    candidates.back().text.front() += 'a' - 'A';  // as users write it
  }
  return candidates;
}

Candidates TrafficTypes() {
  return {{"dovra", ""}, {"witness", ""}};
}

/// What a parameter names. Of several rows that fit, the first one counts.
struct Rule {
  std::string_view command;  ///< how the command's path begins
  std::string_view parameter;
  Candidates (*inLab)(Store&, const HostRow&);
  Candidates (*inEveryLab)() = nullptr;
};

constexpr Rule kRules[] = {
    {"lab host remove", "name", kHostNames},
    {"lab host reboot", "name", kHostNames},
    {"lab network split", "name", kHostNames},
    {"lab fault clear", "message", Faults},
    {"lab disk add", "device", nullptr},  // a new one's
    {"lab disk", "device", kDevices<IsAny>},
    {"dovra cluster join", "cluster-uuid", Clusters},
    {"dovra cluster join", "witness-preferred-fault-domain", kFaultDomains},
    {"dovra cluster preferredfaultdomain", "preferred-fault-domain-name", kFaultDomains},
    {"dovra cluster unicastagent add", "uuid", Hosts<&HostRow::uuid, &HostRow::name>},
    {"dovra cluster unicastagent add", "bound-interface-name", Interfaces},
    {"dovra cluster unicastagent remove", "uuid", Agents<&AgentRow::nodeUuid, &AgentRow::address>},
    {"dovra cluster unicastagent remove", "addr", Agents<&AgentRow::address, &AgentRow::nodeUuid>},
    {"dovra datastore name", "uuid", Datastores},
    {"dovra datastore remove", "uuid", Datastores},
    {"dovra network", "interface-name", Interfaces},
    {"dovra network", "traffic-type", nullptr, TrafficTypes},
    {"dovra storage remove", "evacuation-mode", nullptr, EvacuationModes},
    {"dovra storage add", "ssd", kDevices<IsEmptyFlash>},
    {"dovra storage add", "disks", kDevices<IsEmptyCapacity>},
    {"dovra storage tag", "disk", kDevices<&DiskRow::flash>},
    {"dovra storage", "ssd", kDevices<&DiskRow::IsCache>},
    {"dovra storage", "disk", kDevices<&DiskRow::IsClaimed>},
    {"dovra storage", "device", kDevices<&DiskRow::IsClaimed>},
    {"dovra storage", "uuid", kDiskUuids},
    {"", "host", kHostNames},
};

}  // namespace

Candidates LabValues(const std::string& command, const std::string& parameter,
                     const Options& options) {
  const auto* const rule = std::ranges::find_if(kRules, [&](const Rule& candidate) {
    return command.starts_with(candidate.command) && parameter == candidate.parameter;
  });
  if (rule == std::end(kRules)) return {};
  if (rule->inEveryLab != nullptr) return rule->inEveryLab();
  if (rule->inLab == nullptr) return {};
  SelectLab(options);
  if (!Lab::IsMade()) return {};
  Store& store = Lab::OpenStore();
  // A host that is not there has nothing; what is the whole lab's can be told all the same.
  return rule->inLab(store, store.FindHost(options.host).value_or(HostRow()));
}

}  // namespace AutoCliProgram
