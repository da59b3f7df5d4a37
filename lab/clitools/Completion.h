// What a command line that somebody is typing may go on with.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/clitools/AutoCli.h"

namespace CliTools {

struct Candidate {
  std::string text;
  std::string description;  ///< empty if there is none
};

/// The text of a candidate that stands for any path: the shell completes it.
inline constexpr const char* kAnyPath = "/";

/// Values of a parameter beyond what it declares itself: of the command at `path`, or of the
/// program's own options if that is empty.
using ValueSource =
    std::function<std::vector<Candidate>(const std::string& path, const std::string& parameter)>;

/// What the last of `words`, which may be empty, can become: names of namespaces and commands,
/// options, their values. `words` are what follows the program's name, whose options are
/// `programOptions`.
std::vector<Candidate> Complete(const CallSpec::InputSpec& programOptions,
                                const AutoCli::CommandSpec& root,
                                const std::vector<std::string>& words, const ValueSource& values);

}  // namespace CliTools
