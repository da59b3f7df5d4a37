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

inline Strings operator+(Strings first, const Strings& rest) {
  first.insert(first.end(), rest.begin(), rest.end());
  return first;
}

/// The calls that open the control library.
inline const Strings kOpen = {"GetDovraPlugin()", "GetDovraInfo()"};
inline const Outcome kTrue = {"true", {}};

/// What a failed call leaves.
inline Outcome Failed(const std::string& message, const std::string& root = "none") {
  return {root, {message}};
}

inline void Check(const std::string& command, const SetUp& setUp, const Given& given,
                  const Strings& calls, const Outcome& outcome, const char* file = __builtin_FILE(),
                  int line = __builtin_LINE()) {
  const testing::ScopedTrace trace(file, line, "");
  RecordingLibrary library;
  if (setUp) setUp(library);
  EXPECT_EQ(Testing::Run(command, given), outcome);
  EXPECT_EQ(library.calls, calls);
}

}  // namespace Testing
