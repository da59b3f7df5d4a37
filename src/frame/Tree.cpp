#include "frame/Tree.h"

#include <stdexcept>
#include <string>

namespace OrvaneCli::DovraNamespace {

using CliTools::AutoCli::Namespace;

namespace {

std::string_view ParentOf(std::string_view path) {
  const std::size_t end = path.rfind(' ');
  return path.substr(0, end == std::string_view::npos ? 0 : end);
}

/// Registers the rows at the head of `nodes` that belong to `path`, and returns the others.
std::span<const Node> RegisterBelow(std::span<const Node> nodes, Namespace& parent,
                                    std::string_view path) {
  while (!nodes.empty() && ParentOf(nodes.front().path) == path) {
    const Node& node = nodes.front();
    const std::string name(node.path.substr(node.path.rfind(' ') + 1));
    nodes = nodes.subspan(1);
    if (const auto* const make = std::get_if<Node::Maker>(&node.content)) {
      parent.RegisterNamespaceNode((*make)(), name);
      continue;
    }
    const auto child = Namespace::New();
    child->SetDescription(std::get<const char*>(node.content));
    nodes = RegisterBelow(nodes, *child, node.path);
    parent.RegisterNamespaceNode(child, name);
  }
  return nodes;
}

}  // namespace

void Register(std::span<const Node> nodes, Namespace& parent, std::string_view path) {
  const auto rest = RegisterBelow(nodes, parent, path);
  if (rest.empty()) return;
  throw std::logic_error("the tree has no namespace for \"" + std::string(rest.front().path) + '"');
}

}  // namespace OrvaneCli::DovraNamespace
