// Rules of the storage network: interfaces and unicast agents. Each function works within its
// caller's transaction and refuses with `DovraCtlException`.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/hostctl/DovraRecords.h"
#include "store/Store.h"

namespace Lab {

void ConfigureKnic(Store& store, const HostRow& host,
                   const HostCtl::Dovra::DovraKnicConfig2& config);
/// The interfaces in effect.
std::vector<HostCtl::Dovra::DovraKnicConfig2> ListKnics(Store& store, const HostRow& host);
bool IsKnicInUse(Store& store, const HostRow& host, const std::string& name,
                 const std::string& trafficType);
/// Takes the traffic off the interface, and the interface out when it carries no other.
void RemoveKnic(Store& store, const HostRow& host, const std::string& name, bool force,
                const std::string& trafficType);

void AddAgent(Store& store, const HostRow& host, const AgentRow& agent);
/// Removes the agent at this address; the nil UUID stands for any. Returns whether that was all:
/// after a data node's removal the peers have to be refreshed.
bool RemoveAgent(Store& store, const HostRow& host, const std::string& nodeUuid,
                 const HostCtl::Dovra::DovraIpAddress& address, std::int32_t port);
/// The agent as those who read agents expect it: six fields joined by ";".
std::string ToEntry(const AgentRow& agent);

}  // namespace Lab
