// A tree of commands as a flat table.
#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "platform/clitools/AutoCli.h"

namespace OrvaneCli::DovraNamespace {

using CommandPtr = std::shared_ptr<CliTools::AutoCli::Command>;

/// Makes a command. Each command's source instantiates it for its own class, so that a tree needs
/// no more of a command than its name.
template <class CommandClass>
CommandPtr MakeCommand();

/// A row of the table: the path of a namespace and its description, or that of a command and its
/// maker. What a namespace holds follows it, in the order of registration.
struct Node {
  constexpr Node(std::string_view where, const char* what) : path(where), description(what) {}
  constexpr Node(std::string_view where, CommandPtr (*maker)()) : path(where), make(maker) {}

  std::string_view path;
  const char* description = nullptr;
  CommandPtr (*make)() = nullptr;
};

/// Registers the nodes on `parent`, whose path is `path`; the root's is empty. A namespace is
/// complete before its parent learns of it. Throws `std::logic_error` when a row does not follow
/// its namespace; what was registered by then stays.
void Register(std::span<const Node> nodes, CliTools::AutoCli::Namespace& parent,
              std::string_view path);

}  // namespace OrvaneCli::DovraNamespace
