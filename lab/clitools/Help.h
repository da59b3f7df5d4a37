// What `--help` says at each level of the tree. It derives from what the nodes declare, so that it
// cannot differ from what runs.
#pragma once

#include <cstddef>
#include <string>

#include "platform/clitools/AutoCli.h"

namespace CliTools {

/// The names from below the root down to the node, joined by blanks; empty for the root.
std::string PathOf(const AutoCli::NamespaceNode& node);

/// Help for a namespace: how to go on, its description, its children in registration order.
std::string NamespaceHelp(const AutoCli::CommandSpec& node, std::size_t width = 80);

/// Help for a command: usage, description, parameters, what it prints.
std::string CommandHelp(AutoCli::Command& command, std::size_t width = 80);

}  // namespace CliTools
