#include "corectl/Networks.h"

#include <algorithm>
#include <cctype>
#include <optional>

#include "baselibs/Text.h"
#include "corectl/LabHost.h"
#include "platform/corectl/DovraUtil.h"
#include "store/NewUuid.h"

namespace Lab {

using CoreCtl::Dovra::DovraUtil;
using HostCtl::Dovra::DovraIpAddress;
using HostCtl::Dovra::DovraKnicConfig2;
using HostCtl::Network::Ipv4Address;
using HostCtl::Network::Ipv6Address;

namespace {

constexpr const char* kNilUuid = "00000000-0000-0000-0000-000000000000";
constexpr std::size_t kMaxAgents = 64;  // the hosts of the largest cluster

DovraIpAddress ToAddress(const std::string& text) {
  if (Ipv4Address::IsValidAddress(text)) return DovraIpAddress(Ipv4Address(text));
  return DovraIpAddress(Ipv6Address(text));
}

bool IsMulticast(const DovraIpAddress& address) {
  const std::string text = address.GetStringAddress();
  if (!address.isIpv6) {
    const int first = std::stoi(text);
    return first >= 224 && first <= 239;
  }
  return text.size() > 4 && std::tolower(text[0]) == 'f' && std::tolower(text[1]) == 'f' &&
         text.find(':') == 4;
}

bool IsUnspecified(const DovraIpAddress& address) {
  return address == ToAddress(address.isIpv6 ? "::" : "0.0.0.0");
}

void RequireInterface(Store& store, const HostRow& host, const std::string& name) {
  const auto names = store.ListInterfaces(host.id);
  if (std::ranges::find(names, name) != names.end()) return;
  Refuse("Host " + host.name + " has no interface \"" + name + "\"; it has " +
         (names.empty() ? "none" : BaseLibs::Join(names, ", ")) + ".");
}

void RequireRange(const char* what, std::int64_t value, std::int64_t least, std::int64_t most) {
  if (value >= least && value <= most) return;
  Refuse(std::string("The ") + what + " " + std::to_string(value) + " is not between " +
         std::to_string(least) + " and " + std::to_string(most) + ".");
}

void RequirePort(const char* what, std::int64_t port) {
  RequireRange(what, port, 1, 65535);
}

void RequireMulticast(const char* what, const DovraIpAddress& address) {
  if (!IsMulticast(address)) {
    Refuse(std::string("The ") + what + " address " + address.GetStringAddress() +
           " is not a multicast address.");
  }
}

std::optional<KnicRow> FindKnic(Store& store, const HostRow& host, const std::string& name) {
  for (KnicRow& knic : store.ListKnics(host.id)) {
    if (knic.name == name) return std::move(knic);
  }
  return std::nullopt;
}

bool& Traffic(KnicRow& knic, const std::string& type) {
  if (type == "dovra") return knic.dovra;
  if (type == "witness") return knic.witness;
  Refuse("Unknown traffic type \"" + type + "\"; the types are dovra and witness.");
}

}  // namespace

void ConfigureKnic(Store& store, const HostRow& host, const DovraKnicConfig2& config) {
  RequireInterface(store, host, config.GetKnicName());
  RequireMulticast("agent group's IPv4", config.GetAgentMulticastGroup());
  RequireMulticast("agent group's IPv6", config.GetAgentV6MulticastGroup());
  RequireMulticast("master group's IPv4", config.GetMasterMulticastGroup());
  RequireMulticast("master group's IPv6", config.GetMasterV6MulticastGroup());
  RequirePort("agent group's port", config.GetAgentMulticastPort());
  RequirePort("master group's port", config.GetMasterMulticastPort());
  RequirePort("host's unicast port", config.GetHostUnicastPort());
  RequireRange("multicast TTL", config.GetMulticastTTL(), 1, 255);
  if (!config.carriesDovra && !config.carriesWitness) {
    Refuse("Interface \"" + config.GetKnicName() + "\" would carry no traffic.");
  }
  const auto known = FindKnic(store, host, config.GetKnicName());
  std::string uuid = config.GetIfaceUuid();
  if (uuid.empty()) uuid = known ? known->uuid : NewUuid();
  store.SaveKnic(
      host.id,
      {config.GetKnicName(), uuid, config.GetAgentMulticastGroup().GetStringAddress(),
       config.GetAgentV6MulticastGroup().GetStringAddress(),
       config.GetMasterMulticastGroup().GetStringAddress(),
       config.GetMasterV6MulticastGroup().GetStringAddress(), config.GetAgentMulticastPort(),
       config.GetMasterMulticastPort(), config.GetHostUnicastPort(), config.GetMulticastTTL(),
       config.carriesDovra, config.carriesWitness, true});
}

std::vector<DovraKnicConfig2> ListKnics(Store& store, const HostRow& host) {
  std::vector<DovraKnicConfig2> configs;
  for (const KnicRow& knic : store.ListKnics(host.id)) {
    if (!knic.running) continue;
    configs.emplace_back(knic.name, ToAddress(knic.agentGroup), ToAddress(knic.agentV6Group),
                         ToAddress(knic.masterGroup), ToAddress(knic.masterV6Group),
                         static_cast<int>(knic.agentPort), static_cast<int>(knic.masterPort),
                         static_cast<int>(knic.hostUnicastPort),
                         static_cast<int>(knic.multicastTtl), knic.dovra, knic.witness, knic.uuid);
  }
  return configs;
}

bool IsKnicInUse(Store& store, const HostRow& host, const std::string& name,
                 const std::string& trafficType) {
  auto knic = FindKnic(store, host, name);
  return knic && knic->running && Traffic(*knic, trafficType);
}

void RemoveKnic(Store& store, const HostRow& host, const std::string& name, bool force,
                const std::string& trafficType) {
  auto knic = FindKnic(store, host, name);
  if (!knic) {
    // General traffic is taken off first: by the time it is the witness's turn, the interface may
    // have gone with it, and that is as good.
    if (force || trafficType == "witness") return;
    Refuse("Interface \"" + name + "\" is not in the Dovra network configuration.");
  }
  Traffic(*knic, trafficType) = false;
  if (knic->dovra || knic->witness) {
    store.SaveKnic(host.id, *knic);
  } else {
    store.RemoveKnic(host.id, name);
  }
}

void AddAgent(Store& store, const HostRow& host, const AgentRow& agent) {
  const std::string uuid =
      DovraUtil::DovraUuidToString(DovraUtil::StringToDovraUuid(agent.nodeUuid));
  if (uuid == kNilUuid && !agent.witness) Refuse("A node's UUID cannot be the nil UUID.");
  const DovraIpAddress address = ToAddress(agent.address);
  if (IsMulticast(address) || IsUnspecified(address)) {
    Refuse("The address " + agent.address + " is not one of a single host.");
  }
  RequirePort("port", agent.port);
  if (!agent.boundInterface.empty()) RequireInterface(store, host, agent.boundInterface);
  const auto agents = store.ListAgents(host.id);
  if (agents.size() >= kMaxAgents) {
    Refuse("There can be at most " + std::to_string(kMaxAgents) + " unicast agents.");
  }
  for (const AgentRow& known : agents) {
    if (known.port == agent.port && ToAddress(known.address) == address) {
      Refuse("There is a unicast agent at " + agent.address + " port " +
             std::to_string(agent.port) + " already.");
    }
    if (uuid != kNilUuid && known.nodeUuid == uuid) {
      Refuse("There is a unicast agent with UUID " + uuid + " already.");
    }
  }
  AgentRow canonical = agent;
  canonical.nodeUuid = uuid;
  store.AddAgent(host.id, canonical);
}

bool RemoveAgent(Store& store, const HostRow& host, const std::string& nodeUuid,
                 const DovraIpAddress& address, std::int32_t port) {
  const std::string uuid = DovraUtil::DovraUuidToString(DovraUtil::StringToDovraUuid(nodeUuid));
  for (const AgentRow& agent : store.ListAgents(host.id)) {
    if ((uuid != kNilUuid && agent.nodeUuid != uuid) || agent.port != port ||
        !(ToAddress(agent.address) == address)) {
      continue;
    }
    store.RemoveAgent(agent.id);
    return agent.witness;
  }
  Refuse("There is no unicast agent " + (uuid == kNilUuid ? "" : uuid + " ") + "at " +
         address.GetStringAddress() + " port " + std::to_string(port) + ".");
}

std::string ToEntry(const AgentRow& agent) {
  return agent.nodeUuid + ";" + (agent.witness ? "1" : "0") + ";" +
         (agent.supportsUnicast ? "1" : "0") + ";" + agent.address + ";" +
         std::to_string(agent.port) + ";" + agent.boundInterface;
}

}  // namespace Lab
