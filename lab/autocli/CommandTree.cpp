#include "autocli/CommandTree.h"

#include <span>

#include "autocli/Options.h"
#include "baselibs/Strings.h"
#include "clitools/Display.h"
#include "clitools/Nodes.h"
#include "clitools/PluginError.h"
#include "clitools/Suggest.h"
#include "clitools/UsageError.h"

namespace AutoCliProgram {

using CliTools::UsageError;
using CliTools::AutoCli::Command;
using CliTools::AutoCli::CommandSpec;
using CliTools::AutoCli::Namespace;

namespace {

/// Whether the words begin with the path of a command.
bool NamesCommand(const CommandSpec& root, std::span<const std::string> words) {
  const CommandSpec* node = &root;
  while (node != nullptr && dynamic_cast<const Command*>(node) == nullptr) {
    words = words.subspan(CountOptionWords(words));
    if (words.empty()) return false;
    node = dynamic_cast<const CommandSpec*>(node->GetNamespaceNode(words.front()).get());
    words = words.subspan(1);
  }
  return node != nullptr;
}

/// The names of a namespace's children.
std::vector<std::string> ChildNames(const CommandSpec& space) {
  std::vector<std::string> names;
  for (const auto& child : space.GetChildren()) names.push_back(child->GetName());
  return names;
}

/// The paths of all nodes of that name below `space`.
void CollectPaths(const CommandSpec& space, const std::string& name,
                  std::vector<std::string>& paths) {
  for (const auto& child : space.GetChildren()) {
    if (child->GetName() == name) paths.push_back(CliTools::PathOf(*child));
    if (const auto* const inner = dynamic_cast<const CommandSpec*>(child.get())) {
      CollectPaths(*inner, name, paths);
    }
  }
}

/// The names in the namespace that resemble the word, else the places below it where the word
/// stands as it is: the names that lead there were forgotten.
std::vector<std::string> WhatWasMeant(const CommandSpec& space, const std::string& word) {
  constexpr std::size_t kMost = 3;
  std::vector<std::string> meant = CliTools::Nearest(word, ChildNames(space));
  if (meant.empty()) CollectPaths(space, word, meant);
  if (meant.size() > kMost) meant.resize(kMost);
  return meant;
}

/// Throws `PluginError` for a node that has neither children nor a call.
void RequireSpecs(const CommandSpec& space) {
  for (const auto& child : space.GetChildren()) {
    const auto* const spec = dynamic_cast<const CommandSpec*>(child.get());
    if (!spec) throw CliTools::PluginError(*child, "is neither a namespace nor a command");
    RequireSpecs(*spec);
  }
}

/// A root that is not destroyed: the process ends with it, and taking the tree down would cost as
/// much as building it.
const std::shared_ptr<Namespace>& LastingRoot() {
  static const auto& root = *new std::shared_ptr<Namespace>(Namespace::New());
  return root;
}

}  // namespace

CommandTree::CommandTree(const std::filesystem::path& pluginFolder)
    : root_(LastingRoot()), plugins_(pluginFolder, root_) {}

Target CommandTree::Resolve(const std::vector<std::string>& words) {
  if (!words.empty()) plugins_.LoadCalled(words.front());
  if (!NamesCommand(*root_, words)) GetWhole();
  Target target{root_, {}, ""};
  std::span<const std::string> left = words;
  while (std::dynamic_pointer_cast<Command>(target.node) == nullptr) {
    const auto options = left.first(CountOptionWords(left));
    target.arguments.insert(target.arguments.end(), options.begin(), options.end());
    left = left.subspan(options.size());
    if (left.empty()) return target;
    if (auto child = target.node->GetNamespaceNode(left.front())) {
      target.node = std::static_pointer_cast<CommandSpec>(std::move(child));
    } else if (left.front() == "help") {
      target.arguments.emplace_back("--help");
    } else {
      target.unknown = left.front();
      break;
    }
    left = left.subspan(1);
  }
  target.arguments.insert(target.arguments.end(), left.begin(), left.end());
  return target;
}

const std::shared_ptr<Namespace>& CommandTree::GetWhole() {
  plugins_.LoadAll();
  RequireSpecs(*root_);
  return root_;
}

std::string KnownNames(const CommandSpec& space) {
  return BaseLibs::Join(ChildNames(space), ", ");
}

void RefuseWord(const CommandSpec& space, const std::string& word) {
  const std::string path = CliTools::PathOf(space);
  const std::string suggestion = CliTools::DidYouMean(WhatWasMeant(space, word));
  throw UsageError((path.empty() ? "" : path + ": ") + "there is no " + CliTools::Quote(word) +
                   (suggestion.empty() ? "" : "; " + suggestion) +
                   " (known here: " + KnownNames(space) + ")");
}

}  // namespace AutoCliProgram
