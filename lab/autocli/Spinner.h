#pragma once

#include <string_view>

namespace AutoCliProgram {

/// Tells somebody at a terminal that a command is still at work: a line on standard error that
/// counts the seconds, and is gone before the object is. One at a time, which takes the alarm
/// signal for itself; `command` must outlive it.
class Spinner {
 public:
  explicit Spinner(std::string_view command);
  ~Spinner();
  Spinner(const Spinner&) = delete;
  Spinner& operator=(const Spinner&) = delete;
};

}  // namespace AutoCliProgram
