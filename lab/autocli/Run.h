// One command line: what it asks for is done, and its result printed.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "autocli/CommandTree.h"
#include "autocli/Options.h"

namespace AutoCliProgram {

enum ExitStatus {
  kSuccess = 0,
  kCommandFailed = 1,
  kWrongUse = 2,
  kHostUnusable = 3,
  kResultLost = 4,  ///< the command ran, but its result could not be written
};

/// The folder that holds bin, lib and share, wherever it was moved to.
const std::filesystem::path& Prefix();

/// Where the plug-ins are.
std::filesystem::path PluginFolder(const Options& options);

/// Makes the lab's commands, and whoever else asks, work on the lab and the host of the options.
void SelectLab(const Options& options);

/// Does what the line's options and words ask for, and prints what comes of it. Throws
/// `UsageError`, `HostError`, and what a command throws.
ExitStatus RunLine(CommandTree& tree, const Options& options);

/// Runs `work`, and turns what it throws into a line on standard error, which begins with `place`,
/// and the exit status for it.
ExitStatus Guard(const std::string& place, const std::function<ExitStatus()>& work);

}  // namespace AutoCliProgram
