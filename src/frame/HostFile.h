#pragma once

#include <string>

namespace OrvaneCli::DovraNamespace {

/// Returns where the file is that real hosts have at `path`, which is absolute. Throws what a
/// replacement of this function throws; the one that ships throws nothing.
std::string HostFile(const char* path);

}  // namespace OrvaneCli::DovraNamespace
