#pragma once

#include <string_view>

namespace Lab {

/// What an interface of the storage network carries: the data hosts' traffic, and a witness's.
inline constexpr std::string_view kDovraTraffic = "dovra";
inline constexpr std::string_view kWitnessTraffic = "witness";
inline constexpr std::string_view kTrafficTypes[] = {kDovraTraffic, kWitnessTraffic};

}  // namespace Lab
