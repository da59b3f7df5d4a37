// What autocli takes from a command beyond its declarations. A command sets it as metadata:
//   "examples": lines in pairs, "# PURPOSE" and a command line;
//   "values": "PARAMETER=LIST" separated by commas, where LIST is one of `CompletionValues`;
//   "scope": "lab" for a command on the whole lab, which takes no --host;
//     "external" for one that works on a host from outside, powered off or not;
//     not set for one that runs on the host;
//   "confirm": the question before it runs, which its flag --force answers;
//   "columns": the fields that a table shows unless a formatter is named, separated by commas.
// The commands below `dovra` have the first two in `CommandNotes.cpp` instead.
#pragma once

#include <string>
#include <string_view>

#include "platform/clitools/AutoCli.h"

namespace AutoCliProgram {

/// Returns the examples' lines. Each works on a host in a suitable state.
std::string ExamplesOf(const CliTools::AutoCli::CommandSpec& command);

/// Returns the name of the list that holds the parameter's values; empty when no list does.
std::string ValueListOf(const CliTools::AutoCli::CommandSpec& command, std::string_view parameter);

}  // namespace AutoCliProgram
