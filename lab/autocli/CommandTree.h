// The plug-ins' commands.
#pragma once

#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "platform/clitools/AutoCli.h"

namespace AutoCliProgram {

/// The node that a command line's words lead to.
struct Target {
  std::shared_ptr<CliTools::AutoCli::CommandSpec> node;
  std::vector<std::string> arguments;  ///< options between the words of its path, and what follows
  std::string unknown;  ///< the word that should have named a child of the node, if any
};

/// The tree of all commands. Plug-ins are loaded when a command line needs them. Any plug-in may
/// add commands to any namespace, but `lib<name>.so` is expected to hold the namespace `<name>`, so
/// most command lines need one plug-in. All objects share one root: make only one.
class CommandTree {
 public:
  explicit CommandTree(std::filesystem::path pluginDirectory);

  /// Follows the words down the tree to a command. A word "help" that names no child counts as
  /// --help. Throws `HostError` when the plug-ins cannot be used.
  Target Resolve(const std::vector<std::string>& words);

  /// Loads all plug-ins and returns the root. Throws `HostError` when they cannot be used.
  const std::shared_ptr<CliTools::AutoCli::Namespace>& GetWhole();

 private:
  void Load(const std::filesystem::path& plugin);

  const std::shared_ptr<CliTools::AutoCli::Namespace>& root_;
  std::filesystem::path pluginDirectory_;
  std::set<std::filesystem::path> loaded_;
};

/// Throws `UsageError` for a word that is not the name of a child, with suggestions; for a missing
/// name when the word is empty.
[[noreturn]] void RefuseWord(const CliTools::AutoCli::CommandSpec& space, const std::string& word);

}  // namespace AutoCliProgram
