#include "clitools/Nodes.h"

namespace CliTools {

using AutoCli::Command;
using AutoCli::CommandSpec;

std::string PathOf(const AutoCli::NamespaceNode& node) {
  std::string path = node.GetName();
  for (auto parent = node.GetParent(); parent; parent = parent->GetParent()) {
    if (!parent->GetName().empty()) path.insert(0, parent->GetName() + ' ');
  }
  return path;
}

std::vector<std::shared_ptr<Command>> CommandsBelow(const CommandSpec& space) {
  std::vector<std::shared_ptr<Command>> commands;
  for (const auto& child : space.GetChildren()) {
    if (auto command = std::dynamic_pointer_cast<Command>(child)) {
      commands.push_back(std::move(command));
    } else if (const auto* const inner = dynamic_cast<const CommandSpec*>(child.get())) {
      const auto below = CommandsBelow(*inner);
      commands.insert(commands.end(), below.begin(), below.end());
    }
  }
  return commands;
}

}  // namespace CliTools
