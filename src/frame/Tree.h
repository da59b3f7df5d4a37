// A tree of commands as a flat table.
#pragma once

#include <memory>
#include <span>
#include <string_view>
#include <variant>

#include "platform/clitools/AutoCli.h"

namespace OrvaneCli::DovraNamespace {

using CommandPtr = std::shared_ptr<CliTools::AutoCli::Command>;

/// Returns a new command. Each command's source instantiates this for its class, so that a tree
/// needs only the class's name.
template <class CommandClass>
CommandPtr MakeCommand();

/// A row of the table. A namespace's row precedes its children's; siblings are in the order of
/// registration.
struct Node {
  using Maker = CommandPtr (*)();

  std::string_view path;
  std::variant<const char*, Maker> content;  ///< a namespace's description, or a command's maker
};

/// Registers the nodes below `parent`, whose path is `path`; the root's is empty. A namespace is
/// registered after its children. Throws `std::logic_error` when a row does not follow its
/// namespace's; nodes registered by then stay.
void Register(std::span<const Node> nodes, CliTools::AutoCli::Namespace& parent,
              std::string_view path);

}  // namespace OrvaneCli::DovraNamespace
