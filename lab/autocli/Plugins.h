#pragma once

#include <filesystem>
#include <memory>

#include "platform/clitools/AutoCli.h"

namespace AutoCliProgram {

/// Loads every plug-in in `folder`, in the order of their names, and lets each add its commands to
/// `root`. They stay loaded for as long as the process lives. Throws `LabError` when there is none
/// or one cannot be loaded.
void LoadPlugins(const std::filesystem::path& folder,
                 const std::shared_ptr<CliTools::AutoCli::Namespace>& root);

}  // namespace AutoCliProgram
