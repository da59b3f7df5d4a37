// The storage network's interfaces and the peers reached by unicast.

#include "corectl/Networks.h"
#include "corectl/info/LabInfo.h"

namespace Lab {

using HostCtl::Dovra::DovraIpAddress;
using HostCtl::Dovra::DovraKnicConfig2;

void LabInfo::RemoveKnic(const std::string& name, bool force, const std::string& trafficType) {
  host_.Change("RemoveKnic", [&](Store& store, const HostRow& host) {
    Lab::RemoveKnic(store, host, name, force, trafficType);
  });
}

bool LabInfo::IsKnicInUse(const std::string& name, const std::string& trafficType) {
  return host_.Read("IsKnicInUse", [&](Store& store, const HostRow& host) {
    return Lab::IsKnicInUse(store, host, name, trafficType);
  });
}

void LabInfo::RestoreNetworkConfig() {
  host_.Change("RestoreNetworkConfig",
               [](Store& store, const HostRow& host) { store.SetKnicsRunning(host.id, true); });
}

void LabInfo::ClearNetworkConfig() {
  host_.Change("ClearNetworkConfig",
               [](Store& store, const HostRow& host) { store.ClearKnics(host.id); });
}

void LabInfo2::ConfigureKnic(const DovraKnicConfig2& config) {
  host_.Change("ConfigureKnic",
               [&](Store& store, const HostRow& host) { Lab::ConfigureKnic(store, host, config); });
}

std::vector<std::unique_ptr<DovraKnicConfig2>> LabInfo2::GetKnicConfigs() {
  return host_.Read("GetKnicConfigs", [](Store& store, const HostRow& host) {
    std::vector<std::unique_ptr<DovraKnicConfig2>> configs;
    for (DovraKnicConfig2& config : ListKnics(store, host)) {
      configs.push_back(std::make_unique<DovraKnicConfig2>(std::move(config)));
    }
    return configs;
  });
}

void LabInfo::AddUnicastAgent(const std::string& nodeUuid, bool isWitness, bool supportsUnicast,
                              const DovraIpAddress& address, std::int32_t port,
                              bool hasBoundInterface, const std::string& boundInterface,
                              const std::string&) {
  host_.Change("AddUnicastAgent", [&](Store& store, const HostRow& host) {
    if (hasBoundInterface && boundInterface.empty()) Refuse("The bound interface has no name.");
    AddAgent(store, host,
             {0, nodeUuid, isWitness, supportsUnicast, address.GetStringAddress(), port,
              boundInterface});
  });
}

bool LabInfo::RemoveUnicastAgent(const std::string& nodeUuid, const DovraIpAddress& address,
                                 std::int32_t port) {
  return host_.Change("RemoveUnicastAgent", [&](Store& store, const HostRow& host) {
    return RemoveAgent(store, host, nodeUuid, address, port);
  });
}

// Every process of the lab reads the agents anew, so none holds an old list that this would renew.
void LabInfo::RefreshUnicastAgents() {
  host_.Read("RefreshUnicastAgents", [](Store&, const HostRow&) {});
}

void LabInfo::GetUnicastAgents(std::vector<std::string>& entries) {
  host_.Read("GetUnicastAgents", [&](Store& store, const HostRow& host) {
    entries.clear();
    for (const AgentRow& agent : store.ListAgents(host.id)) entries.push_back(ToEntry(agent));
  });
}

void LabInfo::GetUnicastWitnesses(std::vector<std::string>& witnesses) {
  host_.Read("GetUnicastWitnesses", [&](Store& store, const HostRow& host) {
    witnesses.clear();
    for (const AgentRow& agent : store.ListAgents(host.id)) {
      if (agent.witness) witnesses.push_back(agent.address);
    }
  });
}

}  // namespace Lab
