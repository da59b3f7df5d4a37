// Help for namespaces and commands, generated from what they declare.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "clitools/Display.h"
#include "platform/clitools/AutoCli.h"

namespace CliTools {

/// Returns the parameter's description with "%ENUM%" replaced by the allowed values.
std::string DescriptionOf(const CallSpec::ParameterSpec& parameter);

// The style must have a width. `FieldsOf` and `CommandHelp` throw `PluginError`.

/// Returns the fields of the records that the command prints; empty if it prints none.
std::vector<std::string> FieldsOf(AutoCli::Command& command);

/// Returns a heading, unless it is empty, and the rows: names and descriptions in two columns.
/// Empty without rows.
std::string ColumnsHelp(const std::string& heading,
                        const std::vector<std::pair<std::string, std::string>>& rows,
                        const Style& style);

// `program` is the program's name.

/// Returns the list of the namespace's children: namespaces, then commands, as registered.
std::string ChildrenHelp(const std::string& program, const AutoCli::CommandSpec& node,
                         const Style& style);

/// Returns the help of a namespace: usage, description, children.
std::string NamespaceHelp(const std::string& program, const AutoCli::CommandSpec& node,
                          const Style& style);

/// Returns the help of a command: usage, description, parameters, output.
std::string CommandHelp(const std::string& program, AutoCli::Command& command, const Style& style);

}  // namespace CliTools
