// What help, the reference and completion show of a command beyond its declarations. A command sets
// it as metadata:
//   "examples": lines in pairs, "# PURPOSE" and a command line;
//   "values": "PARAMETER=LIST" separated by commas, where LIST is one of `CompletionValues`;
//   "columns": the fields that a table shows unless a formatter is named, separated by commas.
// The commands below `dovra` have it in `DovraNotes` instead.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "clitools/Display.h"
#include "platform/clitools/AutoCli.h"

namespace AutoCliProgram {

/// A command line that works on a host in a suitable state.
struct Example {
  std::string purpose;
  std::string line;  ///< from the program's name on
};

std::vector<Example> ExamplesOf(const CliTools::AutoCli::CommandSpec& command);

/// Returns the name of the list that holds the parameter's values; empty when no list does.
std::string ValueListOf(const CliTools::AutoCli::CommandSpec& command, std::string_view parameter);

/// Returns the names of the control library's operations that the command may call.
std::vector<std::string_view> OperationsOf(const CliTools::AutoCli::CommandSpec& command);

/// Returns the part of the command's help that shows operations and examples.
std::string NotesHelp(const CliTools::AutoCli::CommandSpec& command, const CliTools::Style& style);

}  // namespace AutoCliProgram
