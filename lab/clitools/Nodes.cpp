#include "clitools/Nodes.h"

#include <algorithm>
#include <iterator>

namespace CliTools {

using AutoCli::Command;
using AutoCli::CommandSpec;
using AutoCli::NamespaceNode;

std::string PathOf(const NamespaceNode& node) {
  std::string path = node.GetName();
  for (auto parent = node.GetParent(); parent; parent = parent->GetParent()) {
    if (!parent->GetName().empty()) path.insert(0, parent->GetName() + ' ');
  }
  return path;
}

std::vector<std::shared_ptr<NamespaceNode>> NodesBelow(const CommandSpec& space) {
  std::vector<std::shared_ptr<NamespaceNode>> nodes;
  for (const auto& child : space.GetChildren()) {
    nodes.push_back(child);
    const auto* const inner = dynamic_cast<const CommandSpec*>(child.get());
    if (inner != nullptr) std::ranges::copy(NodesBelow(*inner), std::back_inserter(nodes));
  }
  return nodes;
}

std::vector<std::shared_ptr<Command>> CommandsBelow(const CommandSpec& space) {
  std::vector<std::shared_ptr<Command>> commands;
  for (const auto& node : NodesBelow(space)) {
    if (auto command = std::dynamic_pointer_cast<Command>(node)) commands.push_back(command);
  }
  return commands;
}

}  // namespace CliTools
