// Running one command.
#pragma once

#include <string>

#include "autocli/CommandTree.h"
#include "autocli/Program.h"

namespace AutoCliProgram {

/// Runs the command that the options' words name, or shows its help. Throws `UsageError`,
/// `HostError` and, from help, `OutputError`.
ExitStatus RunCommandLine(CommandTree& tree, const Options& options);

/// Returns the list of all commands, as the options want it to be shown.
std::string CommandList(CommandTree& tree, const Options& options);

}  // namespace AutoCliProgram
