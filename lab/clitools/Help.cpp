#include "clitools/Help.h"

#include <algorithm>

#include "clitools/CommandLine.h"
#include "clitools/Format.h"
#include "clitools/Text.h"

namespace CliTools {

using AutoCli::Command;
using AutoCli::CommandSpec;
using AutoCli::NamespaceNode;
using CallSpec::ParameterSpec;
using CallSpec::ParameterType;
using MetaObj::MetaList;
using MetaObj::MetaObject;
using MetaObj::MetaStruct;
using MetaObj::MetaType;

namespace {

constexpr std::size_t kIndent = 2;
constexpr std::size_t kUsageIndent = 7;  // below what follows "Usage: "
constexpr std::size_t kDescriptionIndent = 8;

std::string UsageLine(const NamespaceNode& node, std::vector<std::string> items,
                      std::size_t width) {
  const std::string path = PathOf(node);
  items.insert(items.begin(), path.empty() ? "autocli" : "autocli " + path);
  return WrapItems(items, kUsageIndent, width).replace(0, kUsageIndent, "Usage: ");
}

std::string Paragraph(const std::string& text, std::size_t width) {
  return text.empty() ? "" : '\n' + Wrap(text, 0, width);
}

/// One kind of a namespace's children under a heading: names, and descriptions in a column of
/// their own. Empty if there is none.
std::string ChildrenHelp(const CommandSpec& node, bool commands, const char* heading,
                         std::size_t column, std::size_t width) {
  std::string text;
  for (const auto& child : node.GetChildren()) {
    if ((dynamic_cast<const Command*>(child.get()) != nullptr) != commands) continue;
    std::string name = std::string(kIndent, ' ') + child->GetName();
    if (child->GetDescription().empty()) {
      text += name + '\n';
      continue;
    }
    name.resize(column, ' ');
    text += Wrap(child->GetDescription(), column, width).replace(0, column, name);
  }
  return text.empty() ? text : '\n' + std::string(heading) + ":\n" + text;
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

std::string UsageItem(const ParameterSpec& parameter) {
  const bool isList = parameter.GetType() == ParameterType::kStringList;
  const std::string item = "--" + parameter.GetName() + Placeholder(parameter.GetType());
  std::string repeated = isList ? "[" + item + "]..." : "[" + item + "]";
  if (!parameter.IsRequired()) return repeated;
  return isList ? item + ' ' + repeated : item;
}

/// The description with "%ENUM%" replaced by what the constraint allows.
std::string Expand(const ParameterSpec& parameter) {
  constexpr std::string_view kPlaceholder = "%ENUM%";
  std::string text = parameter.GetDescription();
  const std::size_t place = text.find(kPlaceholder);
  if (!parameter.GetConstraint() || place == std::string::npos) return text;
  return text.replace(place, kPlaceholder.size(), AllowedValues(*parameter.GetConstraint()));
}

std::string ParameterHelp(const ParameterSpec& parameter, std::size_t width) {
  const std::string letter =
      parameter.GetShortName().empty() ? "" : '-' + parameter.GetShortName() + ", ";
  std::vector<std::string> attributes = {parameter.IsRequired() ? "required" : "optional"};
  attributes.push_back(parameter.GetType() == ParameterType::kFlag ? "takes no value"
                                                                   : ValueInWords(parameter));
  if (parameter.GetType() == ParameterType::kStringList) attributes.push_back("may be repeated");
  const std::string heading = letter + "--" + parameter.GetName() +
                              Placeholder(parameter.GetType()) + " (" + Join(attributes, "; ") +
                              ")";
  return Wrap(heading, kIndent, width) + Wrap(Expand(parameter), kDescriptionIndent, width);
}

std::string FieldsHelp(const MetaStruct& record, const CommandSpec& command, std::size_t width) {
  const auto fields = ShownFields(record, command.GetDefaultOutputParameters());
  return Wrap(Join(fields, ", "), kIndent, width);
}

std::string OutputHelp(const MetaObject* root, const CommandSpec& command, std::size_t width) {
  if (root == nullptr) return "nothing\n";
  switch (root->GetType()) {
    case MetaType::kBool:
      return "true on success\n";
    case MetaType::kInt:
      return "a whole number\n";
    case MetaType::kString:
      return "a text\n";
    case MetaType::kStruct:
      return "one record with the fields\n" +
             FieldsHelp(static_cast<const MetaStruct&>(*root), command, width);
    case MetaType::kList:
      break;
  }
  const auto& list = static_cast<const MetaList&>(*root);
  if (list.GetElementType() != MetaType::kStruct) return "a list of texts\n";
  if (!list.GetElementTemplate()) return "a list of records\n";
  return "a list of records with the fields\n" +
         FieldsHelp(*list.GetElementTemplate(), command, width);
}

}  // namespace

std::string PathOf(const NamespaceNode& node) {
  std::string path = node.GetName();
  for (auto parent = node.GetParent(); parent; parent = parent->GetParent()) {
    if (!parent->GetName().empty()) path.insert(0, parent->GetName() + ' ');
  }
  return path;
}

std::string NamespaceHelp(const CommandSpec& node, std::size_t width) {
  std::size_t longestName = 0;
  for (const auto& child : node.GetChildren()) {
    longestName = std::max(longestName, child->GetName().size());
  }
  const std::size_t column = kIndent + longestName + kIndent;
  const std::string namespaces = ChildrenHelp(node, false, "Namespaces", column, width);
  std::vector<std::string> usage = {"COMMAND", "[OPTIONS]"};
  if (!namespaces.empty()) usage.insert(usage.begin(), "[NAMESPACE...]");
  return UsageLine(node, usage, width) + Paragraph(node.GetDescription(), width) + namespaces +
         ChildrenHelp(node, true, "Commands", column, width);
}

std::string CommandHelp(Command& command, std::size_t width) {
  const auto input = command.GetInputSpec();
  std::vector<std::string> usage;
  std::string parameters;
  for (const auto& parameter : input->GetParameters()) {
    usage.push_back(UsageItem(*parameter));
    parameters += ParameterHelp(*parameter, width);
  }
  if (!parameters.empty()) parameters = "\nParameters:\n" + parameters;
  return UsageLine(command, usage, width) + Paragraph(command.GetDescription(), width) +
         parameters +
         "\nOutput: " + OutputHelp(command.GetOutputSpec()->GetRootObject().get(), command, width);
}

}  // namespace CliTools
