// The manual, generated from what the program and the commands declare.
#pragma once

#include <string>

#include "platform/clitools/AutoCli.h"

namespace AutoCliProgram {

/// The manual in Markdown. `root` is the root of the whole tree.
std::string Reference(const CliTools::AutoCli::Namespace& root);

}  // namespace AutoCliProgram
