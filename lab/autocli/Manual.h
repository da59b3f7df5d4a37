// The manual, generated from what the program and the commands declare.
#pragma once

#include <string>

#include "clitools/Display.h"
#include "platform/clitools/AutoCli.h"

namespace AutoCliProgram {

// Both throw `PluginError`.

/// Returns the help of a command or a namespace; of the program when `node` is the root.
std::string HelpOf(CliTools::AutoCli::CommandSpec& node, const CliTools::Style& style);

/// Returns the help of all nodes of the whole tree as one document in Markdown.
std::string Reference(CliTools::AutoCli::Namespace& root);

}  // namespace AutoCliProgram
