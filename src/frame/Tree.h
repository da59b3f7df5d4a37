// A tree of commands as a flat table.
#pragma once

#include <memory>
#include <span>
#include <string_view>
#include <variant>

#include "platform/clitools/AutoCli.h"

namespace OrvaneCli::DovraNamespace {

using CommandPtr = std::shared_ptr<CliTools::AutoCli::Command>;

/// Makes a command. Each command's source instantiates it for its own class, so that a tree needs
/// no more of a command than its name.
template <class CommandClass>
CommandPtr MakeCommand();

/// A row of the table. A namespace's rows follow its own, in the order of registration.
struct Node {
  using Maker = CommandPtr (*)();

  std::string_view path;
  std::variant<const char*, Maker> content;  ///< a namespace's description, or a command's maker
};

/// Registers the nodes on `parent`, whose path is `path`; the root's is empty. A namespace is
/// complete before its parent learns of it. Throws `std::logic_error` when a row does not follow
/// its namespace; what was registered by then stays.
void Register(std::span<const Node> nodes, CliTools::AutoCli::Namespace& parent,
              std::string_view path);

}  // namespace OrvaneCli::DovraNamespace
