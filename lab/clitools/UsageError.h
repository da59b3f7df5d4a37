#pragma once

#include <stdexcept>

namespace CliTools {

/// The command line is wrong. `what()` is one line: what was given and what is allowed.
class [[gnu::visibility("default")]] UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace CliTools
