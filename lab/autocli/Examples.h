// How the commands are used.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "clitools/Display.h"

namespace AutoCliProgram {

/// A command line that works as it stands, on a host that is in the state for it.
struct Example {
  const char* command;  ///< the command's path
  const char* purpose;
  const char* line;  ///< from the program's name on
};

/// The examples of the command at `path`: one or two of the plug-ins' own, else none.
std::span<const Example> ExamplesOf(std::string_view path);

/// What help says of them; empty if there is none.
std::string ExamplesHelp(std::string_view path, const CliTools::Style& style);

}  // namespace AutoCliProgram
