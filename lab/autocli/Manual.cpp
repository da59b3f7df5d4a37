#include "autocli/Manual.h"

#include <algorithm>
#include <string_view>

#include "autocli/CommandNotes.h"
#include "autocli/Options.h"
#include "baselibs/Strings.h"
#include "clitools/Format.h"
#include "clitools/Help.h"
#include "clitools/Nodes.h"
#include "clitools/PluginError.h"
#include "clitools/Records.h"
#include "corectl/session/Operations.h"

namespace AutoCliProgram {

using CliTools::Caption;
using CliTools::PathOf;
using CliTools::Printable;
using CliTools::Style;
using CliTools::Wrap;
using CliTools::AutoCli::Command;
using CliTools::AutoCli::CommandSpec;
using CliTools::AutoCli::Namespace;

namespace {

constexpr const char* kProgram = "autocli";
constexpr const char* kUsage =
    "autocli [OPTIONS] NAMESPACE... COMMAND [PARAMETERS]\n"
    "autocli help [NAMESPACE...] [COMMAND]\n"
    "autocli [OPTIONS] --batch FILE\n"
    "autocli --list | --version | --completion SHELL | --help";
constexpr const char* kExitStatus =
    "0 success, 1 the command reported errors, 2 the command line is wrong, 3 the host (plug-in, "
    "lab) cannot be used, 4 the command ran, but its result could not be written (a full disk, a "
    "pipe without a reader). A batch's is the highest of its lines'.";

std::string ProgramHelp(const CommandSpec& root, const Style& style) {
  constexpr std::size_t kUsageIndent = 7;  // the length of "Usage: "
  return Wrap(kUsage, kUsageIndent, style.width).replace(0, kUsageIndent, "Usage: ") +
         "\nRuns a command on a stand-in host.\n" +
         CliTools::ColumnsHelp("Options", OptionRows(), style) +
         CliTools::ChildrenHelp(kProgram, root, style) + '\n' +
         Wrap(std::string("Exit status: ") + kExitStatus, 0, style.width);
}

/// Lists the control library's operations that the command may call.
std::string OperationsHelp(const CommandSpec& command, const Style& style) {
  constexpr std::string_view kSpace = "dovra ";
  const std::string path = PathOf(command);
  if (!path.starts_with(kSpace)) return {};
  std::vector<std::string_view> operations;
  for (const Lab::OperationRow& row : Lab::kOperations) {
    if (row.IsCalledBy(path.substr(kSpace.size()))) operations.push_back(row.name);
  }
  if (operations.empty()) return {};
  return '\n' + Caption("Calls that \"lab fault add\" can make fail:", style) + '\n' +
         Wrap(BaseLibs::Join(operations, ", "), 2, style.width);
}

std::string ExamplesHelp(const CommandSpec& command, const Style& style) {
  const std::string examples = ExamplesOf(command);
  if (examples.empty()) return {};
  const auto lines = BaseLibs::Split(examples, '\n');
  std::string text = '\n' + Caption(lines.size() == 2 ? "Example:" : "Examples:", style) + '\n';
  for (const std::string_view line : lines) {
    // A command line is not wrapped, so that it can be copied.
    text += line.starts_with('#') ? Wrap(line, 2, style.width) : "  " + Printable(line) + '\n';
  }
  return text;
}

std::string Fence(const std::string& text) {
  return "\n```\n" + text + "```\n";
}

/// Appends the help of the nodes below `space`: first the commands, then the namespaces.
void AppendHelp(std::string& page, const CommandSpec& space, const Style& style) {
  for (const bool commands : {true, false}) {
    for (const auto& child : space.GetChildren()) {
      if ((dynamic_cast<const Command*>(child.get()) != nullptr) != commands) continue;
      auto& node = dynamic_cast<CommandSpec&>(*child);
      page += (commands ? "\n### " : "\n## ") + Printable(PathOf(node)) + '\n';
      page += Fence(HelpOf(node, style));
      AppendHelp(page, node, style);
    }
  }
}

/// Returns the declarations that the command's help does not show: type and formatter, then a line
/// for each of the others.
std::string DeclarationsOf(Command& command) {
  constexpr const char* kTypes[] = {"Boolean", "number", "text", "record", "list"};
  const std::string& formatter = command.GetDefaultOutputFormatter();
  std::string text = Printable(PathOf(command)) + ", " + command.GetMetaDataField("type") +
                     (formatter.empty() ? "" : ", " + formatter) + '\n';
  const auto add = [&text](const std::string& name, const std::string& meaning) {
    text += "  " + Printable(name) + ": " + Printable(meaning) + '\n';
  };
  const auto input = CliTools::InputOf(command);
  for (const auto& parameter : input->GetParameters()) {
    if (!parameter->GetConstraint()) continue;
    for (const auto& [value, description] : parameter->GetConstraint()->GetStringEnums()) {
      if (!description.empty()) add("--" + parameter->GetName() + ' ' + value, description);
    }
  }
  for (const auto& [key, value] : command.GetDefaultOutputParameters()) add(key, value);
  const auto result = CliTools::ShapeOf(command);
  if (const auto* const record = result ? CliTools::PatternOf(*result) : nullptr) {
    add(record->GetName(), BaseLibs::Join(record->GetFieldNames(), ", ", [&](const auto& name) {
          return name + " (" + kTypes[static_cast<int>(record->GetField(name)->GetType())] + ")";
        }));
  }
  return text;
}

}  // namespace

std::string HelpOf(CommandSpec& node, const Style& style) {
  if (auto* const command = dynamic_cast<Command*>(&node)) {
    return CliTools::CommandHelp(kProgram, *command, style) + OperationsHelp(node, style) +
           ExamplesHelp(node, style);
  }
  return node.GetName().empty() ? ProgramHelp(node, style)
                                : CliTools::NamespaceHelp(kProgram, node, style);
}

std::string Reference(Namespace& root) {
  const Style style{.width = 72};  // man adds an indentation
  std::string contents;
  std::string declarations;
  for (const auto& command : CliTools::CommandsBelow(root)) {
    const std::string path = Printable(PathOf(*command));
    std::string anchor = path;
    std::ranges::replace(anchor, ' ', '-');
    contents.append("- [").append(path).append("](#").append(anchor).append(")\n");
    declarations += DeclarationsOf(*command);
  }
  std::string page =
      "<!-- Generated by script/reference; do not edit. -->\n\n# Reference\n\n"
      "The help of autocli and of all commands.\n";
  page += "\n## Synopsis\n" + Fence(std::string(kUsage) + '\n');
  page += "\n## Options\n" + Fence(CliTools::ColumnsHelp("", OptionRows(), style));
  page += "\n## Formats\n" + Fence(CliTools::ColumnsHelp("", CliTools::Formatters(), style));
  page += std::string("\n## Exit status\n\n") + kExitStatus + '\n';
  page += "\n## Commands\n\n" + contents;
  AppendHelp(page, root, style);
  page +=
      "\n## Declarations\n\nFor each command: its type and formatter, descriptions of parameter "
      "values, the parameters of the formatter, and the fields of its records.\n";
  return page + Fence(declarations);
}

}  // namespace AutoCliProgram
