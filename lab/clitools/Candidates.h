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
/// program's own options before a command is named, when that is empty.
using ValueSource =
    std::function<std::vector<Candidate>(const std::string& path, const std::string& parameter)>;

/// The program's own options.
struct ProgramOptions {
  const CallSpec::InputSpec& alone;        ///< all, as they may stand before the path of a command
  const CallSpec::InputSpec& withCommand;  ///< those that say something of a command's call
};

/// What the last of `words`, which may be empty, can become: names of namespaces and commands,
/// options, their values. `words` are what follows the program's name.
std::vector<Candidate> Complete(const ProgramOptions& program, const AutoCli::CommandSpec& root,
                                const std::vector<std::string>& words, const ValueSource& values);

}  // namespace CliTools
