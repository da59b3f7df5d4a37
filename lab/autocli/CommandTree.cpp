#include "autocli/CommandTree.h"

#include <span>

#include "autocli/Options.h"
#include "autocli/Plugins.h"
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

/// Follows the words as far as the tree is loaded.
Target Follow(std::shared_ptr<CommandSpec> root, std::span<const std::string> words) {
  Target target{std::move(root), {}, ""};
  while (dynamic_cast<const Command*>(target.node.get()) == nullptr) {
    const auto options = words.first(CountOptionWords(words));
    target.arguments.insert(target.arguments.end(), options.begin(), options.end());
    words = words.subspan(options.size());
    if (words.empty()) return target;
    auto child = target.node->GetNamespaceNode(words.front());
    if (auto spec = std::dynamic_pointer_cast<CommandSpec>(std::move(child))) {
      target.node = std::move(spec);
    } else if (words.front() == "help") {
      target.arguments.emplace_back("--help");
    } else {
      target.unknown = words.front();
      break;
    }
    words = words.subspan(1);
  }
  target.arguments.insert(target.arguments.end(), words.begin(), words.end());
  return target;
}

std::vector<std::string> ChildNames(const CommandSpec& space) {
  std::vector<std::string> names;
  for (const auto& child : space.GetChildren()) names.push_back(child->GetName());
  return names;
}

/// Returns the names in the namespace that resemble the word, else the paths below it that end in
/// the word.
std::vector<std::string> Suggestions(const CommandSpec& space, const std::string& word) {
  constexpr std::size_t kMost = 3;
  std::vector<std::string> meant = CliTools::Nearest(word, ChildNames(space));
  if (!meant.empty()) return meant;
  for (const auto& node : CliTools::NodesBelow(space)) {
    if (node->GetName() == word) meant.push_back(CliTools::PathOf(*node));
  }
  if (meant.size() > kMost) meant.resize(kMost);
  return meant;
}

/// Returns a root that is never destroyed: destroying the tree at the end of the process would take
/// as long as building it.
const std::shared_ptr<Namespace>& LastingRoot() {
  static const auto& root = *new std::shared_ptr<Namespace>(Namespace::New());
  return root;
}

}  // namespace

CommandTree::CommandTree(std::filesystem::path pluginDirectory)
    : root_(LastingRoot()), pluginDirectory_(std::move(pluginDirectory)) {}

void CommandTree::Load(const std::filesystem::path& plugin) {
  if (loaded_.contains(plugin)) return;
  LoadPlugin(plugin, root_);
  loaded_.insert(plugin);
}

Target CommandTree::Resolve(const std::vector<std::string>& words) {
  if (!words.empty() && words.front().find('/') == std::string::npos) {
    const auto plugin = pluginDirectory_ / ("lib" + words.front() + ".so");
    std::error_code ignored;
    if (std::filesystem::exists(plugin, ignored)) Load(plugin);
  }
  Target target = Follow(root_, words);
  const bool isCommand = dynamic_cast<const Command*>(target.node.get()) != nullptr;
  return isCommand ? target : Follow(GetWhole(), words);
}

const std::shared_ptr<Namespace>& CommandTree::GetWhole() {
  for (const auto& plugin : FindPlugins(pluginDirectory_)) Load(plugin);
  for (const auto& node : CliTools::NodesBelow(*root_)) {
    if (dynamic_cast<const CommandSpec*>(node.get()) != nullptr) continue;
    throw CliTools::PluginError(*node, "is neither a namespace nor a command");
  }
  return root_;
}

void RefuseWord(const CommandSpec& space, const std::string& word) {
  const std::string path = CliTools::PathOf(space);
  const std::string where = path.empty() ? "" : path + ": ";
  const std::string known = "known here: " + BaseLibs::Join(ChildNames(space), ", ");
  if (word.empty()) {
    throw UsageError(where + "a command is missing; " + known + " (more: autocli " +
                     (path.empty() ? "" : path + ' ') + "--help)");
  }
  const std::string suggestion = CliTools::DidYouMean(Suggestions(space, word));
  throw UsageError(where + "there is no " + CliTools::Quote(word) +
                   (suggestion.empty() ? "" : "; " + suggestion) + " (" + known + ")");
}

}  // namespace AutoCliProgram
