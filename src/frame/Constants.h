// The shared constants. Not all are in use.
#pragma once

#include <cstddef>
#include <cstdint>

namespace OrvaneCli::DovraNamespace {

// Multicast groups of an interface: the master (upstream) group and the agent (downstream) group.
inline constexpr const char* kDefaultMasterGroup = "224.1.2.3";
inline constexpr const char* kDefaultMasterV6Group = "FF19:0:0:0:0:1:2:3";
inline constexpr const char* kDefaultAgentGroup = "224.2.3.4";
inline constexpr const char* kDefaultAgentV6Group = "FF19:0:0:0:0:2:3:4";

inline constexpr const char* kLastHddMessage = "Can not remove last HDD";

inline constexpr const char* kWitnessTraffic = "witness";
inline constexpr const char* kDovraTraffic = "dovra";
inline constexpr const char* kAll = "all";

inline constexpr const char* kNilUuid = "00000000-0000-0000-0000-000000000000";

/// The default port on which a host listens for its peers.
inline constexpr std::int32_t kDefaultUnicastPort = 12321;

inline constexpr std::size_t kMaxFaultDomainNameLength = 256;

}  // namespace OrvaneCli::DovraNamespace
