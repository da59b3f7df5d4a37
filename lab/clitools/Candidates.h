// Completing command lines.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/clitools/AutoCli.h"

namespace CliTools {

struct Candidate {
  std::string text;
  std::string description;  ///< may be empty
};

/// The text of a candidate that lets the shell complete a path.
inline constexpr const char* kAnyPath = "/";

/// Returns values of an option that declares none: one of the program's, or one of the command at
/// `path`. `path` may also be a namespace's, or empty.
using ValueSource =
    std::function<std::vector<Candidate>(const std::string& path, const std::string& parameter)>;

/// The program's own options.
struct ProgramOptions {
  const CallSpec::InputSpec& alone;        ///< those accepted before a command's path: all
  const CallSpec::InputSpec& withCommand;  ///< those accepted also after it
};

/// Returns the completions of the last word: names of namespaces and commands, options, values of
/// options. `words`, at least one, follow the program's name. Throws `PluginError`.
std::vector<Candidate> Complete(const ProgramOptions& program, const AutoCli::CommandSpec& root,
                                const std::vector<std::string>& words, const ValueSource& values);

}  // namespace CliTools
