// autocli: runs the plug-ins' commands on a stand-in host.

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "autocli/Options.h"
#include "autocli/Plugins.h"
#include "clitools/CommandLine.h"
#include "clitools/Format.h"
#include "clitools/Help.h"
#include "clitools/Suggest.h"
#include "clitools/Text.h"
#include "corectl/LabHost.h"
#include "platform/clitools/AutoCli.h"

namespace AutoCliProgram {

namespace fs = std::filesystem;
using namespace CliTools::AutoCli;
using namespace CliTools::MetaObj;
using CliTools::UsageError;

namespace {

enum ExitStatus { kSuccess = 0, kCommandFailed = 1, kWrongUse = 2, kHostUnusable = 3 };

void PrintError(const std::string& text) {
  std::fprintf(stderr, "%s\n", CliTools::Printable(text).c_str());
}

void Print(const std::string& text) {
  const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  if (!written || std::fflush(stdout) != 0) {
    throw Lab::LabError("the result cannot be written to standard output");
  }
}

/// The columns of the terminal, or of a page when the output is none.
std::size_t HelpWidth() {
  constexpr std::size_t kPage = 80;
  winsize size{};
  if (isatty(STDOUT_FILENO) == 0 || ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0) return kPage;
  return std::max<std::size_t>(size.ws_col, 40);
}

/// The folder that holds bin, lib and share, wherever it was moved to.
fs::path FindPrefix() {
  return fs::read_symlink("/proc/self/exe").parent_path().parent_path();
}

/// A node and the words that are left for it.
struct Target {
  std::shared_ptr<NamespaceNode> node;
  std::vector<std::string> arguments;
};

std::vector<std::string> ChildNames(const CommandSpec& node) {
  std::vector<std::string> names;
  for (const auto& child : node.GetChildren()) names.push_back(child->GetName());
  return names;
}

[[noreturn]] void RefuseWord(const CommandSpec& node, const std::string& word) {
  const std::string path = CliTools::PathOf(node);
  const auto names = ChildNames(node);
  const std::string suggestion = CliTools::DidYouMean(CliTools::Nearest(word, names));
  throw UsageError((path.empty() ? "" : path + ": ") + "there is no " + CliTools::Quote(word) +
                   (suggestion.empty() ? "" : "; " + suggestion) +
                   " (known here: " + CliTools::Join(names, ", ") + ")");
}

bool IsHelp(const std::string& word) {
  return word == "--help" || word == "-h";
}

/// Follows the words down the tree, as far as they name namespaces and a command.
Target Resolve(const std::shared_ptr<Namespace>& root, const std::vector<std::string>& words) {
  Target target{root, words};
  auto word = words.begin();
  for (; word != words.end() && !word->starts_with('-'); ++word) {
    const auto space = std::dynamic_pointer_cast<Namespace>(target.node);
    if (!space) break;
    auto child = space->GetNamespaceNode(*word);
    if (!child) RefuseWord(*space, *word);
    target.node = std::move(child);
  }
  target.arguments.assign(word, words.end());
  return target;
}

void CollectCommands(const CommandSpec& node, const std::shared_ptr<MetaStruct>& layout,
                     MetaList& list) {
  for (const auto& child : node.GetChildren()) {
    if (dynamic_cast<const Command*>(child.get()) != nullptr) {
      auto row = MetaStruct::New(layout->GetName());
      row->SetField("Command", CliTools::PathOf(*child));
      row->SetField("Description", child->GetDescription());
      list.Add(row);
    } else if (const auto* const space = dynamic_cast<const CommandSpec*>(child.get())) {
      CollectCommands(*space, layout, list);
    }
  }
}

std::string ListCommands(const Namespace& root, const std::string& formatter) {
  auto layout = MetaStruct::New("CommandList");
  layout->SetField("Command", "");
  layout->SetField("Description", "");
  const auto list = MetaList::New(MetaType::kStruct, layout);
  CollectCommands(root, layout, *list);
  return CliTools::Format(*list, formatter.empty() ? "table" : formatter, {});
}

std::string Help(NamespaceNode& node) {
  if (auto* const command = dynamic_cast<Command*>(&node)) {
    return CliTools::CommandHelp(*command, HelpWidth());
  }
  return CliTools::NamespaceHelp(dynamic_cast<CommandSpec&>(node), HelpWidth());
}

/// The formatter that shows the command's result; refused if it cannot.
std::string ChooseFormatter(Command& command, const std::string& wanted) {
  if (wanted.empty()) return command.GetDefaultOutputFormatter();
  const auto layout = command.GetOutputSpec()->GetRootObject();
  if (layout && !CliTools::CanShow(wanted, *layout)) {
    throw UsageError(CliTools::PathOf(command) + ": --formatter: " + CliTools::Quote(wanted) +
                     " cannot show this command's result; allowed: " +
                     CliTools::Join(CliTools::FormattersFor(*layout), ", "));
  }
  return wanted;
}

std::shared_ptr<CliTools::CallSpec::Input> ReadParameters(Command& command,
                                                          const std::vector<std::string>& words) {
  try {
    return CliTools::ParseParameters(*command.GetInputSpec(), words);
  } catch (const UsageError& error) {
    throw UsageError(CliTools::PathOf(command) + ": " + error.what());
  }
}

ExitStatus RunCommand(Command& command, const std::vector<std::string>& words,
                      const std::string& wantedFormatter) {
  const std::string formatter = ChooseFormatter(command, wantedFormatter);
  const auto input = ReadParameters(command, words);
  const auto output = CliTools::CallSpec::Output::New();
  command.Execute(input, output);
  if (const auto& root = output->GetRootObject()) {
    Print(CliTools::Format(*root, formatter, command.GetDefaultOutputParameters()));
  }
  for (const std::string& message : output->GetErrorMessages()) PrintError(message);
  return output->GetErrorMessages().empty() ? kSuccess : kCommandFailed;
}

ExitStatus Run(const std::vector<std::string>& arguments) {
  const Options options = ReadOptions(arguments);
  if (options.version) {
    Print("autocli " AUTOCLI_VERSION "\n");
    return kSuccess;
  }
  const fs::path prefix = FindPrefix();
  const auto root = Namespace::New();
  LoadPlugins(
      options.pluginDir.empty() ? prefix / "lib/autocli/plugins" : fs::path(options.pluginDir),
      root);
  if (options.list) {
    Print(ListCommands(*root, options.formatter));
    return kSuccess;
  }
  const Target target = Resolve(root, options.words);
  const bool asksHelp = options.help || std::ranges::any_of(target.arguments, IsHelp);
  if (asksHelp) {
    Print((target.node == root ? OptionsHelp() + std::string("\n") : "") + Help(*target.node));
    return kSuccess;
  }
  auto* const command = dynamic_cast<Command*>(target.node.get());
  if (command == nullptr) {
    const auto& space = dynamic_cast<const CommandSpec&>(*target.node);
    if (!target.arguments.empty()) RefuseWord(space, target.arguments.front());
    const std::string path = CliTools::PathOf(space);
    throw UsageError((path.empty() ? "" : path + ": ") + "a command is missing; known here: " +
                     CliTools::Join(ChildNames(space), ", "));
  }
  Lab::Select({options.lab.empty() ? DefaultLab() : options.lab, options.host,
               prefix / "share/autocli/hostroot"});
  return RunCommand(*command, target.arguments, options.formatter);
}

}  // namespace

}  // namespace AutoCliProgram

int main(int argc, char** argv) {
  using namespace AutoCliProgram;
  try {
    return Run({argv + 1, argv + argc});
  } catch (const UsageError& error) {
    PrintError(std::string("autocli: ") + error.what());
    return kWrongUse;
  } catch (const Lab::LabError& error) {
    PrintError(std::string("autocli: ") + error.what());
    return kHostUnusable;
  } catch (const std::exception& error) {
    PrintError(std::string("autocli: internal error: ") + error.what());
    return kHostUnusable;
  } catch (...) {
    PrintError("autocli: internal error");
    return kHostUnusable;
  }
}
