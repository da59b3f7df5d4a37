#pragma once

#include <stdexcept>

namespace BaseLibs {

/// The host cannot be used: its plug-ins, its lab, or the stand-in host itself. The message names
/// the cause.
class HostError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace BaseLibs
