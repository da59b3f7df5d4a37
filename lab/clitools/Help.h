// What `--help` says at each level of the tree. It derives from what the nodes declare, so that it
// cannot differ from what runs.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "clitools/Display.h"
#include "platform/clitools/AutoCli.h"

namespace CliTools {

/// A parameter's description with "%ENUM%" replaced by what the constraint allows.
std::string DescriptionOf(const CallSpec::ParameterSpec& parameter);

/// A command's parameters as its usage shows them: "--uuid TEXT", "[--wait]".
std::vector<std::string> UsageItems(AutoCli::Command& command);

/// What a command prints, in words, and the fields of its record or records if it has any.
struct Result {
  std::string words;
  std::vector<std::string> fields;
};
Result ResultOf(AutoCli::Command& command);

/// Names and what they are, in two columns below a heading. Empty if there is no name.
std::string ColumnsHelp(const std::string& heading,
                        const std::vector<std::pair<std::string, std::string>>& rows,
                        const Style& style);

// `program` is what is typed before a node's path. The style of help needs a width.

/// A namespace's children in registration order, and how to read on.
std::string ChildrenHelp(const std::string& program, const AutoCli::CommandSpec& node,
                         const Style& style);

/// Help for a namespace: usage, description, children.
std::string NamespaceHelp(const std::string& program, const AutoCli::CommandSpec& node,
                          const Style& style = {80});

/// Help for a command: usage, description, parameters, what it prints.
std::string CommandHelp(const std::string& program, AutoCli::Command& command,
                        const Style& style = {80});

}  // namespace CliTools
