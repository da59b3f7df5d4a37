#pragma once

#include <stdexcept>

namespace Lab {

/// The lab cannot be used: its folder, its store or the chosen host is not what it must be. The
/// text names what and why.
class LabError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace Lab
