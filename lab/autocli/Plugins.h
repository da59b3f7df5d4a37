#pragma once

#include <filesystem>
#include <memory>
#include <set>
#include <string>

#include "platform/clitools/AutoCli.h"

namespace AutoCliProgram {

/// The plug-ins of a folder. Each may add to any namespace, but one called `lib<name>.so` is where
/// the namespace `<name>` begins, so that a command is mostly found by loading one of them. What is
/// loaded stays so for as long as the process lives.
class Plugins {
 public:
  Plugins(std::filesystem::path folder, std::shared_ptr<CliTools::AutoCli::Namespace> root);

  /// Loads the plug-in that `name` is called after, if there is one. Throws `HostError` when it
  /// cannot be loaded.
  void LoadCalled(const std::string& name);

  /// Loads every other one, in the order of their names. Throws `HostError` when there is none at
  /// all or one cannot be loaded.
  void LoadAll();

 private:
  void Load(const std::filesystem::path& plugin);

  std::filesystem::path folder_;
  std::shared_ptr<CliTools::AutoCli::Namespace> root_;
  std::set<std::filesystem::path> loaded_;
};

}  // namespace AutoCliProgram
