#pragma once

#include <string>

namespace OrvaneCli::DovraNamespace {

/// Returns the path of the host's file `path`, which is absolute. It is `path` itself on a real
/// host; a stand-in host's replacement of this function returns another one, and may throw.
std::string HostFile(const char* path);

}  // namespace OrvaneCli::DovraNamespace
