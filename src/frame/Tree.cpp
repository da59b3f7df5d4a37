#include "frame/Tree.h"

#include <string>

namespace OrvaneCli::DovraNamespace {

using CliTools::AutoCli::Namespace;

std::span<const Node> Register(std::span<const Node> nodes, Namespace& parent,
                               std::string_view path) {
  while (!nodes.empty() && nodes.front().path.starts_with(path)) {
    const Node& node = nodes.front();
    const std::string name(node.path.substr(path.size()));
    nodes = nodes.subspan(1);
    if (node.make) {
      parent.RegisterNamespaceNode(node.make(), name);
      continue;
    }
    const auto space = Namespace::New();
    space->SetDescription(node.description);
    nodes = Register(nodes, *space, std::string(node.path) + ' ');
    parent.RegisterNamespaceNode(space, name);
  }
  return nodes;
}

}  // namespace OrvaneCli::DovraNamespace
