// What all parts of autocli share: the program's files, the selected lab, exit statuses.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "autocli/Options.h"

namespace AutoCliProgram {

enum ExitStatus {
  kSuccess = 0,
  kCommandFailed = 1,
  kWrongUse = 2,
  kHostUnusable = 3,
  kResultLost = 4,  ///< standard output could not be written
};

/// Returns the directory that holds bin, lib and share.
const std::filesystem::path& Prefix();

std::filesystem::path PluginDirectory(const Options& options);

/// Selects the lab and the host of the options. Throws `HostError` when neither an option nor the
/// environment names a directory for the lab.
void SelectLab(const Options& options);

/// Runs `work`. Prints an exception as the line "autocli: ", `location` and its message, and
/// returns the exit status for it.
ExitStatus Guard(const std::string& location, const std::function<ExitStatus()>& work);

}  // namespace AutoCliProgram
