// Where the host's files are.
#pragma once

#include <string>

namespace OrvaneCli::DovraNamespace::HostPaths {

/// The program that tells the management daemon about datastores.
std::string NotifyDatastoreScript();
/// The trace daemon's configuration file and its init script.
std::string TraceConfiguration();
std::string TraceInitScript();

}  // namespace OrvaneCli::DovraNamespace::HostPaths
