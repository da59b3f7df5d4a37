// The manual, written from what the program and the tree of commands declare.
#pragma once

#include <string>
#include <vector>

#include "platform/clitools/AutoCli.h"

namespace AutoCliProgram {

/// The parts of the manual: "markdown" is the whole reference, the others are man pages.
std::vector<std::string> ReferenceNames();

/// The text of one of them. `root` is that of the whole tree.
std::string Reference(const std::string& name, const CliTools::AutoCli::Namespace& root);

}  // namespace AutoCliProgram
