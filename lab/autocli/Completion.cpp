#include "autocli/Completion.h"

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "autocli/CommandTree.h"
#include "autocli/LabValues.h"
#include "autocli/Options.h"
#include "autocli/Run.h"
#include "autocli/Terminal.h"
#include "baselibs/File.h"
#include "baselibs/HostError.h"
#include "clitools/Candidates.h"
#include "clitools/Display.h"
#include "clitools/Help.h"
#include "clitools/UsageError.h"
#include "clitools/Words.h"

namespace AutoCliProgram {

using CliTools::Candidate;

namespace {

using Candidates = std::vector<Candidate>;

/// Where a shell looks for the script.
struct Script {
  std::string_view shell;
  const char* path;
};

constexpr Script kScripts[] = {
    {"bash", "bash-completion/completions/autocli"},
    {"zsh", "zsh/vendor-completions/_autocli"},
    {"fish", "fish/vendor_completions.d/autocli.fish"},
};

/// The fields of the command's records that can go on the list which `typed` ends with.
Candidates FieldsOf(CommandTree& tree, const std::string& command, std::string_view typed) {
  const auto node = tree.Resolve(CliTools::SplitWords(command)).node;
  auto* const target = dynamic_cast<CliTools::AutoCli::Command*>(node.get());
  if (target == nullptr) return {};
  if (typed.starts_with("--")) typed.remove_prefix(typed.find('=') + 1);
  const std::string before(typed.substr(0, typed.rfind(',') + 1));
  Candidates candidates;
  for (const std::string& field : CliTools::ResultOf(*target).fields) {
    const bool isThere = (',' + before).find(',' + field + ',') != std::string::npos;
    if (!isThere) candidates.push_back({before + field, ""});
  }
  return candidates;
}

/// The words behind the program's name. Variables that are set before it hold for it.
std::vector<std::string> ReadWords(const std::string& line) {
  CliTools::WordScanner scanner;
  scanner.Scan(line);
  std::vector<std::string> words = scanner.TakeTypedWords();
  auto program = words.begin();
  for (; program != words.end() && program->find('=') != std::string::npos; ++program) {
    const std::size_t equals = program->find('=');
    // NOLINTNEXTLINE(concurrency-mt-unsafe): autocli has one thread.
    setenv(program->substr(0, equals).c_str(), program->c_str() + equals + 1, 1);
  }
  if (program != words.end()) ++program;
  words.erase(words.begin(), program);
  if (words.empty()) words.emplace_back();
  return words;
}

}  // namespace

std::vector<std::string> CompletionShells() {
  std::vector<std::string> shells;
  for (const Script& script : kScripts) shells.emplace_back(script.shell);
  return shells;
}

std::string CompletionScript(const std::string& shell) {
  const auto* const script = std::ranges::find(kScripts, shell, &Script::shell);
  const auto path = Prefix() / "share" / script->path;
  std::string text = BaseLibs::ReadFile(path);
  if (text.empty()) throw BaseLibs::HostError("\"" + path.string() + "\" cannot be read");
  return text;
}

bool IsCompletionRequest(const std::vector<std::string>& arguments) {
  return arguments.size() == 2 && arguments.front() == "--complete";
}

void CompleteLine(const std::string& line) noexcept {
  // Somebody waits at the keyboard: rather nothing than to wait for a lab that is held by others.
  constexpr unsigned kMostSeconds = 2;
  signal(SIGALRM, [](int) { _exit(0); });
  alarm(kMostSeconds);
  try {
    const std::vector<std::string> words = ReadWords(line);
    const Options options = ReadOptions({words.begin(), words.end() - 1}, OptionsFromEnvironment());
    CommandTree tree(PluginFolder(options));
    const auto values = [&](const std::string& command, const std::string& parameter) {
      if (OptionTakesPath(parameter)) return Candidates{{CliTools::kAnyPath, ""}};
      if (parameter == "fields") return FieldsOf(tree, command, words.back());
      return LabValues(command, parameter, options);
    };
    const auto all = OptionsSpec();
    const auto withCommand = CallOptionsSpec();
    std::string text;
    for (const Candidate& candidate :
         CliTools::Complete({*all, *withCommand}, *tree.GetWhole(), words, values)) {
      text += CliTools::Printable(candidate.text) + '\t' +
              CliTools::Printable(candidate.description) + '\n';
    }
    Print(text);
  } catch (...) {  // there is nothing to complete with
  }
}

}  // namespace AutoCliProgram
