// The plug-ins' commands.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "autocli/Plugins.h"
#include "platform/clitools/AutoCli.h"

namespace AutoCliProgram {

/// A node and the words that are left for it: options of the program that stand before the end of
/// its path, and all words behind it.
struct Target {
  std::shared_ptr<CliTools::AutoCli::CommandSpec> node;
  std::vector<std::string> arguments;
  std::string unknown;  ///< the word that should have named a child of the node, if any
};

/// The tree of all commands, of which as much is loaded as is asked for.
class CommandTree {
 public:
  explicit CommandTree(const std::filesystem::path& pluginFolder);

  /// Follows the words down the tree, as far as they name namespaces and a command; "help", where
  /// nothing is called so, stands for --help. Throws `HostError` and `PluginError` when the
  /// plug-ins cannot be used.
  Target Resolve(const std::vector<std::string>& words);

  /// The root of the whole tree. Throws as `Resolve` does.
  const std::shared_ptr<CliTools::AutoCli::Namespace>& GetWhole();

 private:
  const std::shared_ptr<CliTools::AutoCli::Namespace>& root_;
  Plugins plugins_;
};

/// Throws `UsageError`: the namespace has no child called `word`.
[[noreturn]] void RefuseWord(const CliTools::AutoCli::CommandSpec& space, const std::string& word);

/// The names of a namespace's children, for an error message.
std::string KnownNames(const CliTools::AutoCli::CommandSpec& space);

}  // namespace AutoCliProgram
