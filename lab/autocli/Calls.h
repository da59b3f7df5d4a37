// What of the control library a command calls, so that whoever injects faults need not guess.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "clitools/Display.h"

namespace AutoCliProgram {

/// The names of the operations that the command at this path calls, in one way or another.
std::vector<std::string_view> CallsOf(std::string_view path);

/// The same as a part of the command's help; empty if there are none.
std::string CallsHelp(std::string_view path, const CliTools::Style& style);

}  // namespace AutoCliProgram
