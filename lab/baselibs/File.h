#pragma once

#include <string>

namespace BaseLibs {

/// Returns the contents of the file; empty when it cannot be read.
std::string ReadFile(const std::string& path);

}  // namespace BaseLibs
