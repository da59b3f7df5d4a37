// The command tree that the entry point builds, compared whole with a table of its own: whatever a
// script or a help text shows of a command stands there once more.
#include <cxxabi.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <memory>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <typeinfo>

#include "frame/Tree.h"

namespace OrvaneCli::DovraNamespace {
class MaintenanceModeCancel;
}

using namespace CliTools::AutoCli;
using namespace CliTools::CallSpec;
using namespace CliTools::MetaObj;

namespace {

constexpr const char* kTable =
#include "TreeTable.inc"
    ;

struct Tree {
  std::string paths;                         // in the order of the tree, one a line
  std::map<std::string, std::string> nodes;  // by path: what the node is
  std::set<const NamespaceNode*> objects;
};

/// A node may be "like" an earlier one.
Tree ReadTable() {
  Tree tree;
  std::string path;
  std::istringstream lines(std::regex_replace(kTable, std::regex("\\\\\n *"), ""));
  for (std::string line; std::getline(lines, line);) {
    if (line.empty() || line.starts_with('#')) continue;
    if (line.starts_with(' ')) {
      tree.nodes.at(path) += "\n" + line;
      continue;
    }
    path = line.substr(0, line.find(": "));
    const std::string node = line.substr(path.size() + 2);
    tree.paths += path + "\n";
    tree.nodes[path] = node.starts_with("like ") ? tree.nodes.at(node.substr(5)) : node;
  }
  return tree;
}

std::string Quote(const std::string& text) {
  return '"' + std::regex_replace(text, std::regex("\n"), "\\n") + '"';
}

/// Of the policy's help only the frame and a few odd wordings are known outside.
std::string WithoutProse(const std::string& help) {
  const std::regex wordings("(for e\\.g when).+(higher used of system resources).*");
  const std::regex prose("(\\d\\)\\w+ - |part of a fault domain).+?(for e\\.g when~.+)?\n");
  return std::regex_replace(std::regex_replace(help, wordings, "$1~$2~"), prose, "$1~$2\n");
}

std::string Describe(const ParameterConstraint& constraint) {
  if (constraint.GetType() == ParameterConstraintType::kIntRange) {
    return std::to_string(constraint.GetIntMin()) + " to " + std::to_string(constraint.GetIntMax());
  }
  std::string values;
  for (const auto& [value, description] : constraint.GetStringEnums()) {
    values += (values.empty() ? "" : ", ") + value + ": " + Quote(description);
  }
  return values;
}

std::string Describe(const ParameterSpec& parameter) {
  constexpr const char* kTypes[] = {"string", "int", "bool", "flag", "strings"};
  std::string text = "--" + parameter.GetName();
  if (!parameter.GetShortName().empty()) text += " -" + parameter.GetShortName();
  text += std::string(" ") + kTypes[static_cast<int>(parameter.GetType())];
  if (parameter.IsRequired()) text += " required";
  if (parameter.GetConstraint()) text += " (" + Describe(*parameter.GetConstraint()) + ")";
  const std::string& help = parameter.GetDescription();
  return text + ": " + Quote(parameter.GetName() == "policy" ? WithoutProse(help) : help);
}

/// The record that `value` is, or that a list's elements are; null for other values.
const MetaStruct* RecordOf(const MetaObject& value) {
  if (const auto* list = dynamic_cast<const MetaList*>(&value)) {
    return list->GetElementTemplate().get();
  }
  return dynamic_cast<const MetaStruct*>(&value);
}

std::string NameType(const MetaObject& value) {
  constexpr const char* kTypes[] = {"bool", "int", "string", "struct", "list"};
  const auto* const list = dynamic_cast<const MetaList*>(&value);
  const MetaType type = list ? list->GetElementType() : value.GetType();
  const auto* const record = type == MetaType::kStruct ? RecordOf(value) : nullptr;
  return (list ? "list of " : "") + (record ? record->GetName() : kTypes[static_cast<int>(type)]);
}

std::string NameClass(const Command& command) {
  const std::unique_ptr<char, decltype(&std::free)> name(
      abi::__cxa_demangle(typeid(command).name(), nullptr, nullptr, nullptr), &std::free);
  constexpr std::string_view kScope = "OrvaneCli::DovraNamespace::";
  const std::string whole = name.get();
  return whole.starts_with(kScope) ? whole.substr(kScope.size()) : whole;
}

std::string Describe(Command& command) {
  const auto parameters = command.GetInputSpec()->GetParameters();
  const auto result = command.GetOutputSpec()->GetRootObject();
  std::string text =
      NameClass(command) + ", " + command.GetMetaDataField("type") + ", gives " + NameType(*result);
  const std::string& formatter = command.GetDefaultOutputFormatter();
  if (!formatter.empty()) text += " as " + formatter;
  text += "\n  " + Quote(command.GetDescription());
  for (const auto& parameter : parameters) text += "\n  " + Describe(*parameter);
  for (const auto& [key, value] : command.GetDefaultOutputParameters()) {
    text += "\n  " + key + ": " + Quote(value);
  }
  const auto* const record = RecordOf(*result);
  if (!record) return text;
  std::string fields;
  for (const auto& [name, value] : record->GetFields()) {
    fields += (fields.empty() ? "" : ", ") + name + ": " + NameType(*value);
  }
  return text + "\n  {" + fields + "}";
}

void Walk(const std::shared_ptr<NamespaceNode>& node, const std::string& path, Tree& tree) {
  tree.paths += path + "\n";
  tree.objects.insert(node.get());
  if (const auto command = std::dynamic_pointer_cast<Command>(node)) {
    tree.nodes[path] = Describe(*command);
    const auto self = command->GetThis();
    EXPECT_TRUE(self == node && !self.owner_before(node) && !node.owner_before(self)) << path;
    return;
  }
  tree.nodes[path] = Quote(node->GetDescription());
  for (const auto& child : dynamic_cast<const Namespace&>(*node).GetChildren()) {
    Walk(child, path + " " + child->GetName(), tree);
  }
}

Tree ReadDovra(const Namespace& root) {
  EXPECT_EQ(root.GetChildren().size(), 1U);
  Tree tree;
  Walk(root.GetNamespaceNode("dovra"), "dovra", tree);
  return tree;
}

TEST(CommandTree, IsTheKnownOne) {
  const auto root = Namespace::New();
  AutoCli_RegisterNamespaces(root);
  const Tree tree = ReadDovra(*root);
  const Tree table = ReadTable();
  ASSERT_EQ(tree.paths, table.paths);
  for (const auto& [path, node] : table.nodes) EXPECT_EQ(tree.nodes.at(path), node) << path;
  EXPECT_EQ(tree.objects.size(), table.nodes.size());  // an alias has objects of its own
}

TEST(CommandTree, GrowsOnTheNamespaceThatIsThere) {
  const auto root = Namespace::New();
  const auto dovra = Namespace::New();
  dovra->RegisterNamespaceNode(Namespace::New(), "neighbour");
  root->RegisterNamespaceNode(dovra, "dovra");
  AutoCli_RegisterNamespaces(root);
  EXPECT_EQ(root->GetNamespaceNode("dovra"), dovra);
  EXPECT_EQ(dovra->GetDescription(), "Orvane Dovra commands");
  std::string paths = ReadTable().paths;
  paths.insert(paths.find('\n') + 1, "dovra neighbour\n");
  EXPECT_EQ(ReadDovra(*root).paths, paths);
}

TEST(CommandTree, TakesTheNameFromWhatIsNoNamespace) {
  const auto root = Namespace::New();
  root->RegisterNamespaceNode(
      OrvaneCli::DovraNamespace::MakeCommand<OrvaneCli::DovraNamespace::MaintenanceModeCancel>(),
      "dovra");
  AutoCli_RegisterNamespaces(root);
  EXPECT_EQ(ReadDovra(*root).paths, ReadTable().paths);
}

}  // namespace
