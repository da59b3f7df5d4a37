#pragma once

#include <filesystem>
#include <memory>
#include <vector>

#include "platform/clitools/AutoCli.h"

namespace AutoCliProgram {

/// Returns the directory's plug-ins in the order of their names. Throws `HostError` when it holds
/// none or cannot be read.
std::vector<std::filesystem::path> FindPlugins(const std::filesystem::path& directory);

/// Loads the plug-in until the process ends, and registers its commands below `root`. Throws
/// `HostError` when that fails.
void LoadPlugin(const std::filesystem::path& plugin,
                const std::shared_ptr<CliTools::AutoCli::Namespace>& root);

}  // namespace AutoCliProgram
