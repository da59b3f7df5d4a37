#include "autocli/Options.h"

#include <algorithm>
#include <variant>

#include "baselibs/Environment.h"
#include "baselibs/Strings.h"
#include "clitools/CommandLine.h"
#include "clitools/Format.h"
#include "clitools/Help.h"
#include "corectl/rules/Hosts.h"

namespace AutoCliProgram {

using BaseLibs::Environment;
using CliTools::Pairs;
using CliTools::UsageError;
using CliTools::CallSpec::Input;
using CliTools::CallSpec::InputSpec;
using CliTools::CallSpec::ParameterConstraint;
using CliTools::CallSpec::ParameterConstraintType;
using CliTools::CallSpec::ParameterSpec;
using CliTools::CallSpec::ParameterType;

namespace {

enum class Use {
  kCall,     ///< may follow a command
  kTask,     ///< replaces a command
  kBatch,    ///< goes with --batch
  kPlugins,  ///< goes before a command
};

using Strings = std::vector<std::string>;
using Member = std::variant<bool Options::*, std::string Options::*>;

struct Option {
  const char* name;
  const char* letter;  ///< empty: none
  const char* value;   ///< the placeholder of its value; empty for a flag
  Use use;
  Member member;
  const char* description;
  Pairs (*allowed)() = nullptr;  ///< the allowed values and their descriptions; null: any value

  bool IsFlag() const { return std::holds_alternative<bool Options::*>(member); }
};

Pairs Shells() {
  Pairs shells;
  for (const CompletionScript& script : kCompletionScripts) shells.emplace_back(script.shell, "");
  return shells;
}

constexpr Option kOptions[] = {
    {"lab", "", "DIR", Use::kCall, &Options::lab,
     "the lab's directory, created on first use; default: $AUTOCLI_LAB, else autocli/lab below "
     "$XDG_STATE_HOME or ~/.local/state"},
    {"host", "H", "NAME", Use::kCall, &Options::host,
     "run the command on this host; default: $AUTOCLI_HOST, else host1"},
    {"formatter", "f", "NAME", Use::kCall, &Options::formatter,
     "print the result in this format: %ENUM%; default: the command's own", CliTools::Formatters},
    {"fields", "", "A,B,...", Use::kCall, &Options::fields,
     "print only these fields, in this order"},
    {"no-header", "", "", Use::kCall, &Options::noHeader,
     "print tables and csv without the names of the fields"},
    {"plugin-dir", "", "DIR", Use::kPlugins, &Options::pluginDirectory,
     "load the plug-ins in this directory; default: those that came with autocli"},
    {"batch", "", "FILE", Use::kTask, &Options::batch,
     "run each line of the file, or of standard input if it is -, as a command line, up to the "
     "first that fails; words are quoted as in a shell, and nothing is expanded"},
    {"keep-going", "", "", Use::kBatch, &Options::keepGoing,
     "with --batch: run all lines, even if some fail"},
    {"echo", "", "", Use::kBatch, &Options::echo,
     "with --batch: print each line before its result"},
    {"completion", "", "SHELL", Use::kTask, &Options::completion,
     "print the completion script for a shell: %ENUM%; for bash: source <(autocli --completion "
     "bash)",
     Shells},
    {"reference", "", "FORMAT", Use::kTask, &Options::reference,
     "print the manual in this format: %ENUM%",
     [] {
       return Pairs{{"markdown", ""}};
     }},
    {"list", "l", "", Use::kTask, &Options::list, "list all commands"},
    {"version", "V", "", Use::kTask, &Options::version, "print the version"},
    {"help", "h", "", Use::kCall, &Options::help,
     "show help for autocli, a namespace or a command"},
};

std::shared_ptr<InputSpec> MakeSpec(bool withCommand) {
  auto spec = InputSpec::New();
  for (const Option& option : kOptions) {
    if (withCommand && option.use != Use::kCall) continue;
    auto parameter = ParameterSpec::New(
        option.name, option.IsFlag() ? ParameterType::kFlag : ParameterType::kString);
    parameter->SetShortName(option.letter);
    parameter->SetDescription(option.description);
    if (option.allowed != nullptr) {
      auto constraint = ParameterConstraint::New(ParameterConstraintType::kStringEnum);
      for (const auto& [value, description] : option.allowed()) {
        constraint->AddStringEnum(value, description);
      }
      parameter->SetConstraint(std::move(constraint));
    }
    spec->AddParameter(std::move(parameter));
  }
  return spec;
}

/// Returns 2 when the next word is the value of the word's option, else 1.
std::size_t WordsOfOption(std::string_view word) {
  return CliTools::ReadOptionWord(OptionsSpec()->GetParameters(), word).takesNextWord ? 2 : 1;
}

bool IsGiven(const Option& option, const Options& options) {
  const auto* const flag = std::get_if<bool Options::*>(&option.member);
  return flag ? options.**flag
              : !(options.*std::get<std::string Options::*>(option.member)).empty();
}

}  // namespace

Options OptionsFromEnvironment() {
  Options options;
  options.lab = Environment("AUTOCLI_LAB");
  options.defaultHost = Environment("AUTOCLI_HOST");
  if (options.defaultHost.empty()) options.defaultHost = Lab::kFirstHost;
  return options;
}

std::size_t CountOptionWords(std::span<const std::string> words) {
  std::size_t count = 0;
  while (count < words.size() && words[count].starts_with('-')) {
    count += WordsOfOption(words[count]);
  }
  return std::min(count, words.size());
}

Options ReadOptions(const Strings& arguments, const Options& defaults) {
  Options options = defaults;
  std::span<const std::string> own = std::span(arguments).first(CountOptionWords(arguments));
  options.words.assign(own.end(), std::span(arguments).end());
  if (own.empty()) return options;
  const auto take = [&options](std::span<const std::string> words) -> std::string {
    try {
      const auto given = CliTools::ParseParameters(*OptionsSpec(), {words.begin(), words.end()});
      options = TakeOptions(*given, options);
      return {};
    } catch (const UsageError& error) {
      return error.what();
    }
  };
  const std::string fault = take(own);
  while (!fault.empty() && !own.empty()) {  // take those that are right
    const auto option = own.first(std::min(WordsOfOption(own.front()), own.size()));
    own = own.subspan(option.size());
    take(option);
  }
  options.fault = fault;
  return options;
}

Options TakeOptions(const Input& given, Options options) {
  for (const Option& option : kOptions) {
    if (!given.HasParameter(option.name)) continue;
    if (const auto* const flag = std::get_if<bool Options::*>(&option.member)) {
      options.** flag = true;
      continue;
    }
    std::string& value = options.*std::get<std::string Options::*>(option.member);
    value = given.GetParameter(option.name);
    if (value.empty()) throw UsageError(std::string("--") + option.name + ": the value is empty");
  }
  return options;
}

std::string TaskOf(const Options& options) {
  Strings tasks;
  for (const Option& option : kOptions) {
    if (!IsGiven(option, options)) continue;
    std::string name = std::string("--") + option.name;
    if (option.use == Use::kBatch && options.batch.empty()) {
      throw UsageError(name + " goes with --batch");
    }
    if (option.use == Use::kTask) tasks.push_back(std::move(name));
  }
  if (tasks.size() > 1) throw UsageError(BaseLibs::Join(tasks, " and ") + " do not go together");
  return tasks.empty() ? "" : tasks.front();
}

std::shared_ptr<InputSpec> OptionsSpec() {
  static const auto spec = MakeSpec(false);
  return spec;
}

std::shared_ptr<InputSpec> CallOptionsSpec() {
  return MakeSpec(true);
}

bool OptionTakesPath(std::string_view name) {
  const auto* const option = std::ranges::find(kOptions, name, &Option::name);
  const std::string_view value = option == std::end(kOptions) ? "" : option->value;
  return value == "DIR" || value == "FILE";
}

Pairs OptionRows() {
  Pairs rows;
  for (const auto& parameter : OptionsSpec()->GetParameters()) {
    const Option& option = kOptions[rows.size()];
    rows.emplace_back((*option.letter == '\0' ? "" : std::string("-") + option.letter + ", ") +
                          "--" + option.name + (option.IsFlag() ? "" : " ") + option.value,
                      CliTools::DescriptionOf(*parameter));
  }
  return rows;
}

}  // namespace AutoCliProgram
