#pragma once

#include <filesystem>
#include <memory>
#include <set>
#include <string>

#include "platform/clitools/AutoCli.h"

namespace AutoCliProgram {

/// The plug-ins of a directory. Any plug-in may add commands to any namespace. `lib<name>.so` is
/// expected to hold the namespace `<name>`, so most commands need one plug-in. A plug-in stays
/// loaded until the process ends.
class Plugins {
 public:
  Plugins(std::filesystem::path directory, std::shared_ptr<CliTools::AutoCli::Namespace> root);

  /// Loads `lib<name>.so` if it exists. Throws `HostError` when it cannot be loaded.
  void LoadCalled(const std::string& name);

  /// Loads all plug-ins that are not loaded yet, in the order of their names. Throws `HostError`
  /// when the directory holds none, or one cannot be loaded.
  void LoadAll();

 private:
  void Load(const std::filesystem::path& plugin);

  std::filesystem::path directory_;
  std::shared_ptr<CliTools::AutoCli::Namespace> root_;
  std::set<std::filesystem::path> loaded_;
};

}  // namespace AutoCliProgram
