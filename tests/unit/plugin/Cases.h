// One call of a command, checked whole: which operations it asks for, exactly and in order, and
// what it leaves.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <source_location>
#include <stdexcept>
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

template <class CommandClass>
void Check(const SetUp& setUp, const Given& given, const Strings& calls, const Outcome& outcome,
           std::source_location where = std::source_location::current()) {
  const testing::ScopedTrace trace(where.file_name(), static_cast<int>(where.line()), "");
  RecordingLibrary library;
  if (setUp) setUp(library);
  EXPECT_EQ(Run<CommandClass>(given), outcome);
  EXPECT_EQ(library.calls, calls);
}

/// Checks a call that succeeds; then lets each of its operations in turn fail with the text
/// "broken": the command leaves `failed` and asks for nothing more. Other exceptions pass.
template <class CommandClass>
void CheckEachFailure(const SetUp& setUp, const Given& given, const Strings& calls,
                      const Outcome& failed, const Outcome& outcome = kTrue,
                      std::source_location where = std::source_location::current()) {
  Check<CommandClass>(setUp, given, calls, outcome, where);
  for (auto call = calls.begin(); call != calls.end(); ++call) {
    const std::string operation = call->substr(0, call->find('('));
    const auto breakCall = [&](RecordingLibrary& library) {
      if (setUp) setUp(library);
      library.failures[operation] = "broken";
      for (auto earlier = calls.begin(); earlier != call; ++earlier) {
        if (earlier->starts_with(operation + "(")) ++library.failAfter[operation];
      }
    };
    Check<CommandClass>(breakCall, given, Strings(calls.begin(), call + 1), failed, where);

    RecordingLibrary library;
    if (setUp) setUp(library);
    library.otherExceptions[operation] = std::make_exception_ptr(std::logic_error("another"));
    EXPECT_THROW(Run<CommandClass>(given), std::logic_error) << *call;
  }
}

}  // namespace Testing
