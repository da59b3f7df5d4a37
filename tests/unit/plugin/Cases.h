// One call of a command, checked whole: which operations it asks for, exactly and in order, and
// what it leaves.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "Run.h"

namespace Testing {

using Strings = std::vector<std::string>;
using SetUp = std::function<void(RecordingLibrary&)>;  // may be empty

inline Strings operator+(Strings calls, const std::string& next) {
  calls.push_back(next);
  return calls;
}

/// The calls that open the control library.
inline const Strings kOpen = {"GetDovraPlugin()", "GetDovraInfo()"};
inline const Outcome kTrue = {"true", {}};

/// What a failed call leaves.
inline Outcome Failed(const std::string& message, const std::string& root = "none") {
  return {root, {message}};
}

/// What the base library says of a text that is no UUID.
inline std::string NoUuid(const std::string& text) {
  return '"' + text +
         "\" is not a UUID: expected 36 characters of the form "
         "nnnnnnnn-nnnn-nnnn-nnnn-nnnnnnnnnnnn, each n a hexadecimal digit.";
}

/// `line` is what is typed behind `dovra`.
inline void Check(const std::string& line, const SetUp& setUp, const Strings& calls,
                  const Outcome& outcome, const char* file = __builtin_FILE(),
                  int number = __builtin_LINE()) {
  const testing::ScopedTrace trace(file, number, line);
  RecordingLibrary library;
  if (setUp) setUp(library);
  EXPECT_EQ(Testing::Run(line), outcome);
  EXPECT_EQ(library.calls, calls);
}
inline void Check(const std::string& line, const Strings& calls, const Outcome& outcome,
                  const char* file = __builtin_FILE(), int number = __builtin_LINE()) {
  Check(line, {}, calls, outcome, file, number);
}

}  // namespace Testing
