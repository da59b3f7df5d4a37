#pragma once

#include <stdexcept>

namespace BaseLibs {

/// The host, its lab or its plug-ins cannot be used. `what()` names the cause.
class HostError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace BaseLibs
