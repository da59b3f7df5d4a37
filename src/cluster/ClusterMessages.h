// Messages of several cluster commands.
#pragma once

namespace OrvaneCli::DovraNamespace {

inline constexpr const char* kAlreadyInClusterMessage =
    "The host is in a Dovra cluster and enabled for Dovra. You need to remove it from the cluster "
    "or disable Dovra.";

inline constexpr const char* kNotEnabledMessage = "Dovra isn't enabled on the host";

}  // namespace OrvaneCli::DovraNamespace
