#include "frame/Tree.h"

#include <string>

namespace OrvaneCli::DovraNamespace {

using CliTools::AutoCli::Namespace;

namespace {

bool IsBelow(std::string_view path, std::string_view space) {
  return space.empty() || (path.starts_with(space) && path.substr(space.size()).starts_with(' '));
}

}  // namespace

std::span<const Node> Register(std::span<const Node> nodes, Namespace& parent,
                               std::string_view path) {
  while (!nodes.empty() && IsBelow(nodes.front().path, path)) {
    const Node& node = nodes.front();
    const std::string name(node.path.substr(node.path.rfind(' ') + 1));
    nodes = nodes.subspan(1);
    if (node.make) {
      parent.RegisterNamespaceNode(node.make(), name);
      continue;
    }
    const auto space = Namespace::New();
    space->SetDescription(node.description);
    nodes = Register(nodes, *space, node.path);
    parent.RegisterNamespaceNode(space, name);
  }
  return nodes;
}

}  // namespace OrvaneCli::DovraNamespace
