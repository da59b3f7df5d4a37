// Nodes of the command tree: their paths, and walking them.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/clitools/AutoCli.h"

namespace CliTools {

/// Returns the names from below the root down to the node, joined by blanks; empty for the root.
std::string PathOf(const AutoCli::NamespaceNode& node);

/// Returns all nodes below the namespace in the order of registration, each before those below it.
std::vector<std::shared_ptr<AutoCli::NamespaceNode>> NodesBelow(const AutoCli::CommandSpec& space);

/// Returns the commands among them.
std::vector<std::shared_ptr<AutoCli::Command>> CommandsBelow(const AutoCli::CommandSpec& space);

}  // namespace CliTools
