#pragma once

#include <cstdlib>
#include <string>

namespace BaseLibs {

/// Returns the value of an environment variable; empty if it is not set.
inline std::string Environment(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

}  // namespace BaseLibs
