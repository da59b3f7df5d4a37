#include "autocli/Reference.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "autocli/CommandNotes.h"
#include "autocli/Options.h"
#include "baselibs/Strings.h"
#include "clitools/CommandLine.h"
#include "clitools/Display.h"
#include "clitools/Format.h"
#include "clitools/Help.h"
#include "clitools/Markdown.h"
#include "clitools/Nodes.h"
#include "clitools/PluginError.h"
#include "clitools/Records.h"

namespace AutoCliProgram {

using CliTools::MarkdownPage;
using CliTools::PathOf;
using CliTools::AutoCli::Command;
using CliTools::AutoCli::CommandSpec;
using CliTools::AutoCli::Namespace;
using CliTools::AutoCli::NamespaceNode;
using CliTools::CallSpec::ParameterSpec;
using CliTools::CallSpec::ParameterType;

namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

/// Describes the parameter's value. Does not repeat allowed values that its description names.
std::string ValueOf(const ParameterSpec& parameter) {
  const bool namesValues = CliTools::DescriptionOf(parameter) != parameter.GetDescription();
  const bool isNumber = parameter.GetType() == ParameterType::kInt;
  std::string value = namesValues ? (isNumber ? "a whole number" : "text")
                      : parameter.GetConstraint() && !isNumber
                          ? "one of " + CliTools::AllowedValues(*parameter.GetConstraint())
                          : CliTools::ValueInWords(parameter);
  if (parameter.GetType() == ParameterType::kStringList) value += "; may be repeated";
  return value;
}

MarkdownPage::Definition DefinitionOf(const ParameterSpec& parameter) {
  const std::string& letter = parameter.GetShortName();
  std::string remark = (parameter.IsRequired() ? "required; " : "") + ValueOf(parameter);
  return {(letter.empty() ? "" : '-' + letter + ", ") + "--" + parameter.GetName(),
          CliTools::DescriptionOf(parameter), std::move(remark)};
}

std::string UsageOf(Command& command) {
  constexpr std::size_t kIndent = 4;
  constexpr std::size_t kWidth = 76;
  auto items = CliTools::UsageItems(command);
  items.insert(items.begin(), "autocli " + PathOf(command));
  const std::string usage = CliTools::WrapItems(items, kIndent, kWidth);
  return usage.substr(kIndent, usage.size() - kIndent - 1);  // without the last newline
}

std::string WhatItDoes(Command& command) {
  const CliTools::Result result = CliTools::ResultOf(command);
  std::string words = "Prints " + result.words + (result.fields.empty() ? "" : " ") +
                      BaseLibs::Join(result.fields, ", ") + '.';
  const std::string type = command.GetMetaDataField("type");
  if (type == "fetcher") return "It only reads. " + words;
  // Some commands of this type print records and change nothing.
  return (type == "operation" && result.fields.empty() ? "It changes state. " : "") + words;
}

void WriteCommand(MarkdownPage& page, Command& command) {
  const std::string path = PathOf(command);
  page.Subsection(path);
  page.Paragraph(command.GetDescription());
  page.Code(UsageOf(command));
  std::vector<MarkdownPage::Definition> parameters;
  const auto input = CliTools::InputOf(command);
  for (const auto& parameter : input->GetParameters()) {
    parameters.push_back(DefinitionOf(*parameter));
  }
  page.Definitions(parameters);
  page.Paragraph(WhatItDoes(command));
  if (const auto operations = OperationsOf(command); !operations.empty()) {
    page.Paragraph("Calls of the control library: " + BaseLibs::Join(operations, ", ") + '.');
  }
  for (const Example& example : ExamplesOf(command)) {
    page.Paragraph("Example: " + example.purpose);
    page.Code(example.line);
  }
}

void WriteNode(MarkdownPage& page, NamespaceNode& node);

/// Writes the namespace's commands, then the namespaces below it.
void WriteChildren(MarkdownPage& page, const CommandSpec& space) {
  for (const bool commands : {true, false}) {
    for (const auto& child : space.GetChildren()) {
      if ((dynamic_cast<Command*>(child.get()) != nullptr) == commands) WriteNode(page, *child);
    }
  }
}

void WriteNode(MarkdownPage& page, NamespaceNode& node) {
  if (auto* const command = dynamic_cast<Command*>(&node)) return WriteCommand(page, *command);
  page.Section(PathOf(node));
  page.Paragraph(node.GetDescription());
  WriteChildren(page, dynamic_cast<const CommandSpec&>(node));
}

std::vector<MarkdownPage::Definition> Definitions(const Pairs& rows) {
  std::vector<MarkdownPage::Definition> definitions;
  for (const auto& [term, meaning] : rows) definitions.push_back({term, meaning});
  return definitions;
}

void WriteProgram(MarkdownPage& page) {
  page.Section("Synopsis");
  page.Code(ProgramUsage());
  page.Section("Options");
  page.Definitions(Definitions(OptionRows()));
  page.Section("Formats");
  page.Definitions(Definitions(CliTools::FormatterDescriptions()));
  page.Section("Exit status");
  page.Paragraph(ExitStatusHelp());
}

/// Returns what formatters and completion read of a command beside what its section shows: a line
/// that names the command, then a line for each declaration. Empty without declarations.
std::vector<std::string> DeclarationsOf(Command& command) {
  constexpr const char* kTypes[] = {"truth value", "number", "text", "record", "list"};
  const std::string& formatter = command.GetDefaultOutputFormatter();
  std::vector<std::string> lines = {PathOf(command) + (formatter.empty() ? "" : ", " + formatter)};
  const auto add = [&lines](const std::string& name, const std::string& meaning) {
    lines.push_back("  " + name + ": " + meaning);
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
  return lines.size() > 1 ? lines : std::vector<std::string>();
}

}  // namespace

std::string Reference(const Namespace& root) {
  MarkdownPage page("Reference", "Generated by script/reference; do not edit.");
  page.Paragraph("All commands of autocli, generated from their declarations.");
  WriteProgram(page);
  page.Section("Commands");
  Pairs contents;
  std::vector<std::string> declarations;
  for (const auto& command : CliTools::CommandsBelow(root)) {
    contents.emplace_back(PathOf(*command), command->GetDescription());
    std::ranges::move(DeclarationsOf(*command), std::back_inserter(declarations));
  }
  page.Contents(contents);
  WriteChildren(page, root);
  page.Section("Declarations");
  page.Paragraph(
      "For each command: its formatter, descriptions of parameter values, the parameters of the "
      "formatter, and the fields of its records.");
  page.Code(BaseLibs::Join(declarations, "\n"));
  return page.GetText();
}

}  // namespace AutoCliProgram
