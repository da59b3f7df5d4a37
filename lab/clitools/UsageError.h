// What is wrong with a command line.
#pragma once

#include <stdexcept>

namespace CliTools {

/// The command line cannot be run as it was typed. `what()` is one line for the person who typed
/// it: what was given and what is allowed.
class [[gnu::visibility("default")]] UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace CliTools
