#include "autocli/Completion.h"

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "autocli/CommandNotes.h"
#include "autocli/CommandTree.h"
#include "autocli/CompletionValues.h"
#include "autocli/Options.h"
#include "autocli/Program.h"
#include "autocli/Terminal.h"
#include "baselibs/File.h"
#include "baselibs/HostError.h"
#include "clitools/Candidates.h"
#include "clitools/Display.h"
#include "clitools/Help.h"
#include "clitools/Words.h"

namespace AutoCliProgram {

using CliTools::Candidate;

namespace {

using Candidates = std::vector<Candidate>;

/// Returns the lists that `typed` can become: up to its last comma, and each field it lacks.
Candidates FieldsOf(CliTools::AutoCli::CommandSpec& node, std::string_view typed) {
  auto* const command = dynamic_cast<CliTools::AutoCli::Command*>(&node);
  if (command == nullptr) return {};
  if (typed.starts_with("--")) typed.remove_prefix(typed.find('=') + 1);
  const std::string before(typed.substr(0, typed.rfind(',') + 1));
  Candidates candidates;
  for (const std::string& field : CliTools::FieldsOf(*command)) {
    const bool isThere = (',' + before).find(',' + field + ',') != std::string::npos;
    if (!isThere) candidates.push_back({before + field, ""});
  }
  return candidates;
}

/// Returns the words after the program's name, and sets the variables that are assigned before it.
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

std::string ReadCompletionScript(const std::string& shell) {
  const auto* const script = std::ranges::find(kCompletionScripts, shell, &CompletionScript::shell);
  const auto path = Prefix() / "share" / script->path;
  std::string text = BaseLibs::ReadFile(path);
  if (text.empty()) throw BaseLibs::HostError("\"" + path.string() + "\" cannot be read");
  return text;
}

void CompleteLine(const std::string& line) noexcept {
  // The user waits at the prompt: give up when another process holds the lab's lock.
  constexpr unsigned kMostSeconds = 2;
  signal(SIGALRM, [](int) { _exit(0); });
  alarm(kMostSeconds);
  try {
    const std::vector<std::string> words = ReadWords(line);
    const Options options = ReadOptions({words.begin(), words.end() - 1}, OptionsFromEnvironment());
    CommandTree tree(PluginDirectory(options));
    const auto values = [&](const std::string& path, const std::string& parameter) {
      if (OptionTakesPath(parameter)) return Candidates{{CliTools::kAnyPath, ""}};
      const auto node = tree.Resolve(CliTools::SplitWords(path)).node;
      if (parameter == "fields") return FieldsOf(*node, words.back());
      const std::string list = ValueListOf(*node, parameter);
      return CompletionValues(list.empty() && parameter == "host" ? "hosts" : list, options);
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
  } catch (...) {  // Print nothing: a message would garble the prompt.
  }
}

}  // namespace AutoCliProgram
