#pragma once

#include <string>

namespace AutoCliProgram {

/// While it exists, shows a line on the terminal that counts the seconds, but not within the first.
/// `command` is the beginning of the line, and must outlive the object. One object at a time; it
/// uses SIGALRM.
class Spinner {
 public:
  explicit Spinner(const std::string& command);
  ~Spinner();
  Spinner(const Spinner&) = delete;
  Spinner& operator=(const Spinner&) = delete;
};

}  // namespace AutoCliProgram
