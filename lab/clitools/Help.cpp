#include "clitools/Help.h"

#include <algorithm>

#include "baselibs/Strings.h"
#include "clitools/CommandLine.h"
#include "clitools/Display.h"
#include "clitools/Nodes.h"
#include "clitools/PluginError.h"
#include "clitools/Records.h"

namespace CliTools {

using AutoCli::Command;
using AutoCli::CommandSpec;
using AutoCli::NamespaceNode;
using BaseLibs::Join;
using CallSpec::ParameterSpec;
using CallSpec::ParameterType;

namespace {

constexpr std::size_t kIndent = 2;
constexpr std::size_t kUsageIndent = 7;  // the length of "Usage: "
constexpr std::size_t kDescriptionIndent = 8;

using Rows = std::vector<std::pair<std::string, std::string>>;

std::string CommandLineOf(const std::string& program, const NamespaceNode& node) {
  const std::string path = PathOf(node);
  return path.empty() ? program : program + ' ' + path;
}

std::string UsageLine(const std::string& program, const NamespaceNode& node,
                      std::vector<std::string> items, const Style& style) {
  items.insert(items.begin(), CommandLineOf(program, node));
  return WrapItems(items, kUsageIndent, style.width)
      .replace(0, kUsageIndent, Caption("Usage:", style) + ' ');
}

std::string Paragraph(const std::string& text, std::size_t width) {
  return text.empty() ? "" : '\n' + Wrap(text, 0, width);
}

bool HasNamespaces(const CommandSpec& node) {
  return std::ranges::any_of(node.GetChildren(), [](const auto& child) {
    return dynamic_cast<const Command*>(child.get()) == nullptr;
  });
}

const char* Placeholder(ParameterType type) {
  switch (type) {
    case ParameterType::kFlag:
      return "";
    case ParameterType::kInt:
      return " NUMBER";
    case ParameterType::kBool:
      return " BOOLEAN";
    default:
      return " TEXT";
  }
}

/// Returns the parameter as it appears in the usage: "--uuid TEXT", "[--wait]".
std::string UsageItem(const ParameterSpec& parameter) {
  const bool isList = parameter.GetType() == ParameterType::kStringList;
  const std::string item = "--" + parameter.GetName() + Placeholder(parameter.GetType());
  std::string repeated = isList ? "[" + item + "]..." : "[" + item + "]";
  if (!parameter.IsRequired()) return repeated;
  return isList ? item + ' ' + repeated : item;
}

std::string ParameterHelp(const ParameterSpec& parameter, std::size_t width) {
  std::vector<std::string> attributes = {parameter.IsRequired() ? "required" : "optional"};
  const bool isFlag = parameter.GetType() == ParameterType::kFlag;
  attributes.push_back(isFlag ? "takes no value" : ValueInWords(parameter));
  if (parameter.GetType() == ParameterType::kStringList) attributes.push_back("may be repeated");
  const std::string letter = Printable(parameter.GetShortName());
  const std::string indent = letter.empty() ? "      " : "  -" + letter + ", ";
  const std::string name = "--" + parameter.GetName() + Placeholder(parameter.GetType());
  const std::string description = DescriptionOf(parameter);
  return Wrap(name + " (" + Join(attributes, "; ") + ")", indent.size(), width)
             .replace(0, indent.size(), indent) +
         (description.empty() ? "" : Wrap(description, kDescriptionIndent, width));
}

/// Describes what the command prints.
const char* ResultInWords(Command& command) {
  const auto root = ShapeOf(command);
  if (!root) return "nothing";
  const bool isList = root->GetType() == MetaType::kList;
  if (PatternOf(*root) != nullptr) {
    return isList ? "a list of records with the fields" : "one record with the fields";
  }
  if (isList) return HoldsRecords(*root) ? "a list of records" : "a list of texts";
  return root->GetType() == MetaType::kBool  ? "true on success"
         : root->GetType() == MetaType::kInt ? "a whole number"
                                             : "a text";
}

std::string OutputHelp(Command& command, std::size_t width) {
  const std::string fields = Join(FieldsOf(command), ", ");
  return std::string(ResultInWords(command)) + '\n' +
         (fields.empty() ? "" : Wrap(fields, kIndent, width));
}

}  // namespace

std::string DescriptionOf(const ParameterSpec& parameter) {
  constexpr std::string_view kPlaceholder = "%ENUM%";
  std::string text = parameter.GetDescription();
  const std::size_t begin = text.find(kPlaceholder);
  if (!parameter.GetConstraint() || begin == std::string::npos) return text;
  return text.replace(begin, kPlaceholder.size(), AllowedValues(*parameter.GetConstraint()));
}

std::vector<std::string> FieldsOf(Command& command) {
  const auto root = ShapeOf(command);
  const MetaStruct* const pattern = root ? PatternOf(*root) : nullptr;
  if (pattern == nullptr) return {};
  return ShownFields(*pattern, command.GetDefaultOutputParameters());
}

std::string ColumnsHelp(const std::string& heading, const Rows& rows, const Style& style) {
  if (rows.empty()) return {};
  std::size_t widest = 0;
  for (const auto& [name, description] : rows) {
    widest = std::max(widest, DisplayWidth(Printable(name)));
  }
  const std::size_t column = kIndent + widest + kIndent;
  std::string text = heading.empty() ? "" : '\n' + Caption(heading + ':', style) + '\n';
  for (const auto& [name, description] : rows) {
    const std::string first = std::string(kIndent, ' ') + Printable(name);
    const std::string gap(column - DisplayWidth(first), ' ');
    text += description.empty()
                ? first + '\n'
                : Wrap(description, column, style.width).replace(0, column, first + gap);
  }
  return text;
}

std::string ChildrenHelp(const std::string& program, const CommandSpec& node, const Style& style) {
  Rows namespaces;
  Rows commands;
  for (const auto& child : node.GetChildren()) {
    const bool isCommand = dynamic_cast<const Command*>(child.get()) != nullptr;
    (isCommand ? commands : namespaces).emplace_back(child->GetName(), child->GetDescription());
  }
  return ColumnsHelp("Namespaces", namespaces, style) + ColumnsHelp("Commands", commands, style) +
         Paragraph("More: " + CommandLineOf(program, node) + " NAME --help", style.width);
}

std::string NamespaceHelp(const std::string& program, const CommandSpec& node, const Style& style) {
  std::vector<std::string> usage = {"COMMAND", "[OPTIONS]"};
  if (HasNamespaces(node)) usage.insert(usage.begin(), "[NAMESPACE...]");
  return UsageLine(program, node, usage, style) + Paragraph(node.GetDescription(), style.width) +
         ChildrenHelp(program, node, style);
}

std::string CommandHelp(const std::string& program, Command& command, const Style& style) {
  std::vector<std::string> usage;
  std::string parameters;
  const auto input = InputOf(command);
  for (const auto& parameter : input->GetParameters()) {
    usage.push_back(UsageItem(*parameter));
    parameters += ParameterHelp(*parameter, style.width);
  }
  if (!parameters.empty()) parameters = '\n' + Caption("Parameters:", style) + '\n' + parameters;
  return UsageLine(program, command, std::move(usage), style) +
         Paragraph(command.GetDescription(), style.width) + parameters + '\n' +
         Caption("Output:", style) + ' ' + OutputHelp(command, style.width);
}

}  // namespace CliTools
