// The storage network's interfaces.

#include "baselibs/Strings.h"
#include "corectl/info/LabInfo.h"
#include "corectl/rules/Addresses.h"
#include "corectl/rules/Clusters.h"
#include "corectl/rules/Refuse.h"
#include "corectl/values/TrafficTypes.h"
#include "store/Uuids.h"

namespace Lab {

using HostCtl::Dovra::DovraIpAddress;
using HostCtl::Dovra::DovraKnicConfig2;

namespace {

void RequireMulticast(const char* what, const DovraIpAddress& address) {
  if (!IsMulticast(address)) {
    Refuse(std::string("The ") + what + " address " + address.GetStringAddress() +
           " is not a multicast address.");
  }
}

/// Runs an operation on the host's interfaces. Where it isolates the host or ends its isolation, it
/// changes the partitions.
template <class Work>
void ChangeKnics(Session& session, Operation operation, Work&& work) {
  session.Change(operation, [&](Store& store, const HostRow& host) {
    const bool wasIsolated = store.IsIsolated(host.id);
    work(store, host);
    const auto member = FindRunningMember(store, host);
    if (member && store.IsIsolated(host.id) != wasIsolated) BumpMembership(store, member->cluster);
  });
}

bool& Traffic(KnicRow& knic, const std::string& type) {
  if (type == kDovraTraffic) return knic.dovra;
  if (type == kWitnessTraffic) return knic.witness;
  Refuse("Unknown traffic type \"" + type + "\"; the types are " +
         BaseLibs::Join(kTrafficTypes, " and ") + ".");
}

}  // namespace

void LabInfo2::ConfigureKnic(const DovraKnicConfig2& config) {
  ChangeKnics(host_, "ConfigureKnic", [&](Store& store, const HostRow& host) {
    const std::string& name = config.GetKnicName();
    RequireInterface(host, name);
    RequireMulticast("agent group's IPv4", config.GetAgentMulticastGroup());
    RequireMulticast("agent group's IPv6", config.GetAgentV6MulticastGroup());
    RequireMulticast("master group's IPv4", config.GetMasterMulticastGroup());
    RequireMulticast("master group's IPv6", config.GetMasterV6MulticastGroup());
    RequirePort("agent group's port", config.GetAgentMulticastPort());
    RequirePort("master group's port", config.GetMasterMulticastPort());
    RequirePort("host's unicast port", config.GetHostUnicastPort());
    RequireRange("multicast TTL", config.GetMulticastTTL(), 1, 255);
    if (!config.carriesDovra && !config.carriesWitness) {
      Refuse("Interface \"" + name + "\" would carry no traffic.");
    }
    std::string uuid = config.GetIfaceUuid();
    if (uuid.empty()) {
      const auto known = store.Find<KnicRow>(host.id, name);
      uuid = known ? known->uuid : NewUuid();
    }
    store.Save(KnicRow{host.id, name, uuid, config.GetAgentMulticastGroup().GetStringAddress(),
                       config.GetAgentV6MulticastGroup().GetStringAddress(),
                       config.GetMasterMulticastGroup().GetStringAddress(),
                       config.GetMasterV6MulticastGroup().GetStringAddress(),
                       config.GetAgentMulticastPort(), config.GetMasterMulticastPort(),
                       config.GetHostUnicastPort(), config.GetMulticastTTL(), config.carriesDovra,
                       config.carriesWitness, true});
  });
}

std::vector<std::unique_ptr<DovraKnicConfig2>> LabInfo2::GetKnicConfigs() {
  return host_.Read("GetKnicConfigs", [](Store& store, const HostRow& host) {
    std::vector<std::unique_ptr<DovraKnicConfig2>> configs;
    for (const KnicRow& knic : store.List<KnicRow>(host.id)) {
      if (!knic.running) continue;
      configs.push_back(std::make_unique<DovraKnicConfig2>(
          knic.name, ToAddress(knic.agentGroup), ToAddress(knic.agentV6Group),
          ToAddress(knic.masterGroup), ToAddress(knic.masterV6Group),
          static_cast<int>(knic.agentPort), static_cast<int>(knic.masterPort),
          static_cast<int>(knic.hostUnicastPort), static_cast<int>(knic.multicastTtl), knic.dovra,
          knic.witness, knic.uuid));
    }
    return configs;
  });
}

bool LabInfo::IsKnicInUse(const std::string& name, const std::string& trafficType) {
  return host_.Read("IsKnicInUse", [&](Store& store, const HostRow& host) {
    auto knic = store.Find<KnicRow>(host.id, name);
    return knic && knic->running && Traffic(*knic, trafficType);
  });
}

// Removes the traffic from the interface, and an interface without traffic.
void LabInfo::RemoveKnic(const std::string& name, bool force, const std::string& trafficType) {
  ChangeKnics(host_, "RemoveKnic", [&](Store& store, const HostRow& host) {
    auto knic = store.Find<KnicRow>(host.id, name);
    if (!knic) {
      // Commands remove the data hosts' traffic first, which may have removed the interface.
      if (force || trafficType == kWitnessTraffic) return;
      Refuse("Interface \"" + name + "\" is not in the Dovra network configuration.");
    }
    Traffic(*knic, trafficType) = false;
    if (knic->dovra || knic->witness) {
      store.Save(*knic);
    } else {
      store.Remove<KnicRow>(host.id, name);
    }
  });
}

void LabInfo::RestoreNetworkConfig() {
  ChangeKnics(host_, "RestoreNetworkConfig",
              [](Store& store, const HostRow& host) { store.SetKnicsRunning(host.id, true); });
}

void LabInfo::ClearNetworkConfig() {
  ChangeKnics(host_, "ClearNetworkConfig",
              [](Store& store, const HostRow& host) { store.RemoveAll<KnicRow>(host.id); });
}

}  // namespace Lab
