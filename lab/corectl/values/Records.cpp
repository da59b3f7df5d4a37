#include <utility>

#include "corectl/values/TrafficTypes.h"
#include "platform/hostctl/DovraCtlException.h"
#include "platform/hostctl/DovraRecords.h"

namespace HostCtl::Lib::Dovra {

DovraCtlException::DovraCtlException(std::string message) : message_(std::move(message)) {}
DovraCtlException::~DovraCtlException() = default;

}  // namespace HostCtl::Lib::Dovra

namespace HostCtl::Dovra {

DovraDatastore::DovraDatastore(std::string uuid, std::string name, bool isDefault)
    : uuid_(std::move(uuid)), name_(std::move(name)), isDefault_(isDefault) {}

DovraDiskLun::~DovraDiskLun() = default;

DovraKnicConfig::DovraKnicConfig(std::string knicName, DovraIpAddress agentGroup,
                                 DovraIpAddress masterGroup, int agentPort, int masterPort,
                                 int hostUnicastPort, int multicastTtl, std::string ifaceUuid)
    : knicName_(std::move(knicName)),
      agentGroup_(std::move(agentGroup)),
      masterGroup_(std::move(masterGroup)),
      agentPort_(agentPort),
      masterPort_(masterPort),
      hostUnicastPort_(hostUnicastPort),
      multicastTtl_(multicastTtl),
      ifaceUuid_(std::move(ifaceUuid)) {}
DovraKnicConfig::~DovraKnicConfig() = default;

DovraKnicConfig2::DovraKnicConfig2(std::string knicName, DovraIpAddress agentGroup,
                                   DovraIpAddress agentV6Group, DovraIpAddress masterGroup,
                                   DovraIpAddress masterV6Group, int agentPort, int masterPort,
                                   int hostUnicastPort, int multicastTtl, bool dovra, bool witness,
                                   std::string ifaceUuid)
    : DovraKnicConfig(std::move(knicName), std::move(agentGroup), std::move(masterGroup), agentPort,
                      masterPort, hostUnicastPort, multicastTtl, std::move(ifaceUuid)),
      carriesDovra(dovra),
      carriesWitness(witness),
      agentV6Group_(std::move(agentV6Group)),
      masterV6Group_(std::move(masterV6Group)) {}
DovraKnicConfig2::~DovraKnicConfig2() = default;

void DovraKnicConfig2::GetTrafficTypes(std::vector<std::string>& types) const {
  types.clear();
  if (carriesDovra) types.emplace_back(Lab::kDovraTraffic);
  if (carriesWitness) types.emplace_back(Lab::kWitnessTraffic);
}

}  // namespace HostCtl::Dovra
