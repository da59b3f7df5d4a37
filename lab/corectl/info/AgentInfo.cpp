// Unicast agents.

#include "corectl/info/LabInfo.h"
#include "corectl/rules/Addresses.h"
#include "corectl/rules/CanonicalUuid.h"
#include "corectl/rules/Refuse.h"
#include "store/Uuids.h"

namespace Lab {

using HostCtl::Dovra::DovraIpAddress;

namespace {

constexpr std::size_t kMaxAgents = 64;  // the hosts of the largest cluster

}  // namespace

void LabInfo::AddUnicastAgent(const std::string& nodeUuid, bool isWitness, bool supportsUnicast,
                              const DovraIpAddress& address, std::int32_t port,
                              bool hasBoundInterface, const std::string& boundInterface,
                              const std::string&) {
  host_.Change("AddUnicastAgent", [&](Store& store, const HostRow& host) {
    const AgentRow agent = {0,         host.id,         CanonicalUuid(nodeUuid),
                            isWitness, supportsUnicast, CanonicalAddress(address),
                            port,      boundInterface};
    if (agent.nodeUuid == kNilUuid && !isWitness) Refuse("A node's UUID cannot be the nil UUID.");
    if (!IsUnicast(address)) {
      Refuse("The address " + agent.address + " is not one of a single host.");
    }
    RequirePort("port", port);
    if (hasBoundInterface) RequireInterface(host, boundInterface);
    const auto agents = store.List<AgentRow>(host.id);
    if (agents.size() >= kMaxAgents) {
      Refuse("There can be at most " + std::to_string(kMaxAgents) + " unicast agents.");
    }
    for (const AgentRow& known : agents) {
      if (isWitness && known.witness) {
        Refuse("There is a unicast witness already: " + known.address + ".");
      }
      if (known.address == agent.address && known.port == port) {
        Refuse("There is a unicast agent at " + agent.address + " port " + std::to_string(port) +
               " already.");
      }
      if (known.nodeUuid == agent.nodeUuid) {
        Refuse("There is a unicast agent with UUID " + agent.nodeUuid + " already.");
      }
    }
    store.Save(agent);
  });
}

bool LabInfo::RemoveUnicastAgent(const std::string& nodeUuid, const DovraIpAddress& address,
                                 std::int32_t port) {
  return host_.Change("RemoveUnicastAgent", [&](Store& store, const HostRow& host) {
    const std::string uuid = CanonicalUuid(nodeUuid);
    const std::string known = CanonicalAddress(address);
    const bool isAny = uuid == kNilUuid;
    for (const AgentRow& agent : store.List<AgentRow>(host.id)) {
      if (agent.address != known || agent.port != port) continue;
      if (!isAny && agent.nodeUuid != uuid) continue;
      store.Remove<AgentRow>(agent.id);
      return agent.witness;  // false asks the caller to refresh the agents
    }
    Refuse("There is no unicast agent " + (isAny ? "" : uuid + " ") + "at " +
           address.GetStringAddress() + " port " + std::to_string(port) + ".");
  });
}

// Nothing to refresh: every command of the lab reads the agents from the store.
void LabInfo::RefreshUnicastAgents() {
  host_.Read("RefreshUnicastAgents", [](Store&, const HostRow&) {});
}

void LabInfo::GetUnicastAgents(std::vector<std::string>& entries) {
  host_.Read("GetUnicastAgents", [&](Store& store, const HostRow& host) {
    entries.clear();
    for (const AgentRow& agent : store.List<AgentRow>(host.id)) {
      entries.push_back(agent.nodeUuid + ";" + (agent.witness ? "1" : "0") + ";" +
                        (agent.supportsUnicast ? "1" : "0") + ";" + agent.address + ";" +
                        std::to_string(agent.port) + ";" + agent.boundInterface);
    }
  });
}

void LabInfo::GetUnicastWitnesses(std::vector<std::string>& witnesses) {
  host_.Read("GetUnicastWitnesses", [&](Store& store, const HostRow& host) {
    witnesses.clear();
    for (const AgentRow& agent : store.List<AgentRow>(host.id)) {
      if (agent.witness) witnesses.push_back(agent.address);
    }
  });
}

}  // namespace Lab
