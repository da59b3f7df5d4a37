#include "network/NetworkIpAdd.h"

#include <algorithm>

#include "frame/Command.h"
#include "frame/Text.h"

namespace OrvaneCli::DovraNamespace {

using HostCtl::Dovra::DovraInfo2;
using HostCtl::Dovra::DovraIpAddress;
using HostCtl::Dovra::DovraKnicConfig2;
using HostCtl::Network::Ipv4Address;
using HostCtl::Network::Ipv6Address;

namespace {

/// An interface's settings, at first the defaults of a new interface.
struct Settings {
  Ipv4Address agentGroup{kDefaultAgentGroup};
  Ipv6Address agentV6Group{kDefaultAgentV6Group};
  Ipv4Address masterGroup{kDefaultMasterGroup};
  Ipv6Address masterV6Group{kDefaultMasterV6Group};
  std::int32_t agentPort = 23451;
  std::int32_t masterPort = 12345;
  std::int32_t hostUnicastPort = kDefaultUnicastPort;
  std::int32_t multicastTtl = 5;
  bool carriesDovra = true;
  bool carriesWitness = false;
};

bool IsInUse(DovraInfo2& info, const std::string& name) {
  return info.IsKnicInUse(name, kDovraTraffic) || info.IsKnicInUse(name, kWitnessTraffic);
}

/// Returns the settings of the interface's entry, or of the last entry when none has its name.
/// Returns nothing when there are no entries or that entry is null.
std::optional<Settings> ReadSettings(DovraInfo2& info, const std::string& name) {
  const auto entries = info.GetKnicConfigs();
  if (entries.empty()) return std::nullopt;
  // The search leaves out the last entry, so it ends there when no other entry has the name.
  const auto named = std::find_if(entries.begin(), entries.end() - 1, [&](const auto& entry) {
    return entry && entry->GetKnicName() == name;
  });
  const DovraKnicConfig2* const entry = named->get();
  if (!entry) return std::nullopt;
  // Through strings, because the constructors throw for an address of the other family.
  return Settings{
      .agentGroup = Ipv4Address(entry->GetAgentMulticastGroup().GetStringAddress()),
      .agentV6Group = Ipv6Address(entry->GetAgentV6MulticastGroup().GetStringAddress()),
      .masterGroup = Ipv4Address(entry->GetMasterMulticastGroup().GetStringAddress()),
      .masterV6Group = Ipv6Address(entry->GetMasterV6MulticastGroup().GetStringAddress()),
      .agentPort = entry->GetAgentMulticastPort(),
      .masterPort = entry->GetMasterMulticastPort(),
      .hostUnicastPort = entry->GetHostUnicastPort(),
      .multicastTtl = entry->GetMulticastTTL(),
      .carriesDovra = entry->carriesDovra,
      .carriesWitness = entry->carriesWitness,
  };
}

template <class Address>
void OverrideGroup(const InputPtr& input, const char* parameter, Address& group) {
  if (const auto text = Given<std::string>(input, parameter)) group = Address(*text);
}

void OverrideNumber(const InputPtr& input, const char* parameter, std::int32_t& number) {
  if (const auto given = Given<std::int64_t>(input, parameter)) number = ClampToInt32(*given);
}

/// The types given replace the interface's.
void OverrideTraffic(const InputPtr& input, Settings& settings) {
  if (!input->HasParameter("traffic-type")) return;
  std::vector<std::string> types;
  input->GetParameterList("traffic-type", types);
  settings.carriesDovra = false;
  settings.carriesWitness = false;
  for (const std::string& type : types) {
    if (type == kDovraTraffic) {
      settings.carriesDovra = true;
    } else if (type == kWitnessTraffic) {
      settings.carriesWitness = true;
    } else {
      throw DovraCtlException("Unknown traffic type");
    }
  }
}

void OverrideWhatIsGiven(const InputPtr& input, Settings& settings) {
  OverrideGroup(input, "agent-mc-addr", settings.agentGroup);
  OverrideGroup(input, "agent-v6-mc-addr", settings.agentV6Group);
  OverrideGroup(input, "master-mc-addr", settings.masterGroup);
  OverrideGroup(input, "master-v6-mc-addr", settings.masterV6Group);
  OverrideNumber(input, "agent-mc-port", settings.agentPort);
  OverrideNumber(input, "master-mc-port", settings.masterPort);
  OverrideNumber(input, "host-uc-port", settings.hostUnicastPort);
  OverrideNumber(input, "multicast-ttl", settings.multicastTtl);
  OverrideTraffic(input, settings);
}

/// Returns the interface's configuration. Its UUID is empty: the library keeps or assigns one.
DovraKnicConfig2 MakeEntry(const std::string& name, const Settings& settings) {
  return DovraKnicConfig2(
      name, DovraIpAddress(settings.agentGroup), DovraIpAddress(settings.agentV6Group),
      DovraIpAddress(settings.masterGroup), DovraIpAddress(settings.masterV6Group),
      settings.agentPort, settings.masterPort, settings.hostUnicastPort, settings.multicastTtl,
      settings.carriesDovra, settings.carriesWitness, "");
}

}  // namespace

NetworkIpAdd::NetworkIpAdd() {
  DescribeOperation("Add an IP interface to the Dovra network configuration.");
}

InputSpecPtr NetworkIpAdd::GetInputSpecCommon() {
  return MakeInputSpec({
      {"interface-name", "i", ParameterType::kString, Need::kRequired, "Interface name."},
      {"agent-mc-addr", "d", ParameterType::kString, Need::kOptional,
       "IPv4 multicast address for agent (also called downstream) group."},
      {"agent-v6-mc-addr", "D", ParameterType::kString, Need::kOptional,
       "IPv6 multicast address for agent (also called downstream) group."},
      {"agent-mc-port", "p", ParameterType::kInt, Need::kOptional,
       "Multicast address port for agent (also called downstream) group."},
      {"master-mc-addr", "u", ParameterType::kString, Need::kOptional,
       "IPv4 multicast address for master (also called upstream) group."},
      {"master-v6-mc-addr", "U", ParameterType::kString, Need::kOptional,
       "IPv6 multicast address for master (also called upstream) group."},
      {"master-mc-port", "o", ParameterType::kInt, Need::kOptional,
       "Multicast address port for master (also called upstream) group."},
      {"host-uc-port", "c", ParameterType::kInt, Need::kOptional,
       "Unicast address port for host unicast channel."},
      {"multicast-ttl", "t", ParameterType::kInt, Need::kOptional,
       "Time-to-live for multicast packets."},
      {"traffic-type", "T", ParameterType::kStringList, Need::kOptional,
       "Network transmission type of Dovra traffic through a virtual network adapter.Supported "
       "values are dovra, witness. Type dovra means general Dovra transmission, which is used for "
       "both data and witness transmission, if there is no virtual adapter configured with witness "
       "traffic type; Type witness indicates that, Dovra knic is used for Dovra witness "
       "transmission. Once a virtual adapter is configured with witness traffic type, Dovra "
       "witness data transmission will stop using virtual adpater with dovra traffic type, and use "
       "first dicovered virtual adapter with witness traffic type. Multiple traffic types can be "
       "provided in format -T type1 -T type2. Default value is dovra, if this option is not "
       "specified."},
  });
}

void NetworkIpAdd::ExecuteCommon(const InputPtr& input, const OutputPtr& output, bool reconfigure) {
  try {
    const ControlLibrary library;
    DovraInfo2* const info = library.GetInfo2();
    if (!info) return output->AddErrorMessage(kNoInfo2Message);
    const std::string name = input->GetParameter("interface-name");
    const bool isInUse = IsInUse(*info, name);
    if (reconfigure && !isInUse) {
      return output->AddErrorMessage(
          "This Hostkernel network interface is not in use. Can't set/reconfigure. If you want to "
          "add, use 'add' command.");
    }
    if (!reconfigure && isInUse) {
      return output->AddErrorMessage(
          "This Hostkernel network interface is already in use. Can't add again. If you want to "
          "reconfigure, use 'set' command.");
    }
    auto settings = reconfigure ? ReadSettings(*info, name) : Settings();
    if (!settings) return output->AddErrorMessage("This Hostkernel network interface not found.");
    OverrideWhatIsGiven(input, *settings);
    info->ConfigureKnic(MakeEntry(name, *settings));
    output->SetRootObject(MetaBool::New(true));
  } catch (const DovraCtlException& failure) {
    Report(output, failure);
  }
}

InputSpecPtr NetworkIpAdd::GetInputSpecInternal() {
  return GetInputSpecCommon();
}

void NetworkIpAdd::ExecuteInternal(const InputPtr& input, const OutputPtr& output) {
  ExecuteCommon(input, output, false);
}

template CommandPtr MakeCommand<NetworkIpAdd>();

}  // namespace OrvaneCli::DovraNamespace
