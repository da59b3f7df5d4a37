#include "autocli/Options.h"

#include <algorithm>
#include <span>
#include <utility>

#include "autocli/Completion.h"
#include "autocli/Reference.h"
#include "baselibs/Environment.h"
#include "baselibs/HostError.h"
#include "baselibs/Strings.h"
#include "clitools/CommandLine.h"
#include "clitools/Format.h"
#include "clitools/Help.h"
#include "corectl/rules/Hosts.h"

namespace AutoCliProgram {

using BaseLibs::Environment;
using CliTools::UsageError;
using CliTools::CallSpec::Input;
using CliTools::CallSpec::InputSpec;
using CliTools::CallSpec::ParameterConstraint;
using CliTools::CallSpec::ParameterConstraintType;
using CliTools::CallSpec::ParameterSpec;
using CliTools::CallSpec::ParameterType;

namespace {

/// Whether an option says something of a command's call, or what the program is to do instead.
enum class Use { kCall, kProgram };

/// One option. `letter` is empty where there is none, `value` for a flag.
struct Option {
  std::string_view name;
  std::string_view letter;
  std::string_view value;
  Use use;
  const char* description;

  bool IsFlag() const { return value.empty(); }
};

constexpr Option kOptions[] = {
    {"lab", "", "DIR", Use::kCall,
     "the lab's folder, made on first use; else $AUTOCLI_LAB, else a folder below the user's "
     "folder for state"},
    {"host", "H", "NAME", Use::kCall,
     "the host on which the command runs; else $AUTOCLI_HOST, else host1"},
    {"formatter", "f", "NAME", Use::kCall,
     "how the result is printed: simple, table, json or csv; else as the command sees fit"},
    {"fields", "", "A,B,...", Use::kCall,
     "which fields of the result's records are printed, in this order"},
    {"no-header", "", "", Use::kCall, "tables and csv without the line that names the fields"},
    {"plugin-dir", "", "DIR", Use::kProgram,
     "where the plug-ins are; else those that came with autocli"},
    {"batch", "", "FILE", Use::kProgram,
     "run each line of the file, or of standard input if it is -, as a command line, up to the "
     "first that fails; words are quoted as in a shell, and nothing is expanded"},
    {"keep-going", "", "", Use::kProgram, "with --batch: up to the last line"},
    {"echo", "", "", Use::kProgram, "with --batch: print each line before its result"},
    {"completion", "", "SHELL", Use::kProgram,
     "print what makes bash, zsh or fish complete command lines, as in: source <(autocli "
     "--completion bash)"},
    {"reference", "", "FORMAT", Use::kProgram, "print the manual; FORMAT is markdown"},
    {"list", "l", "", Use::kProgram, "list every command"},
    {"version", "V", "", Use::kProgram, "print the version"},
    {"help", "h", "", Use::kCall, "print this, or the help of what stands beside it"},
};

std::shared_ptr<ParameterConstraint> OneOf(const std::vector<std::string>& values) {
  auto constraint = ParameterConstraint::New(ParameterConstraintType::kStringEnum);
  for (const std::string& value : values) constraint->AddStringEnum(value, "");
  return constraint;
}

std::shared_ptr<ParameterConstraint> ConstraintFor(std::string_view option) {
  if (option == "formatter") return OneOf(CliTools::FormatterNames());
  if (option == "completion") return OneOf(CompletionShells());
  if (option == "reference") return OneOf(ReferenceFormats());
  return nullptr;
}

std::shared_ptr<InputSpec> MakeSpec(bool withCommand) {
  auto spec = InputSpec::New();
  for (const Option& option : kOptions) {
    if (withCommand && option.use != Use::kCall) continue;
    auto parameter = ParameterSpec::New(
        std::string(option.name), option.IsFlag() ? ParameterType::kFlag : ParameterType::kString);
    parameter->SetShortName(std::string(option.letter));
    parameter->SetDescription(option.description);
    parameter->SetConstraint(ConstraintFor(option.name));
    spec->AddParameter(std::move(parameter));
  }
  return spec;
}

/// Takes the option's value over, if it was given.
void Take(const Input& given, const char* option, std::string& value) {
  if (!given.HasParameter(option)) return;
  value = given.GetParameter(option);
  if (value.empty()) throw UsageError(std::string("--") + option + ": the name is empty");
}

/// How many words the option takes that begins with this one.
std::size_t WordsOfOption(std::string_view word) {
  return CliTools::ReadOptionWord(OptionsSpec()->GetParameters(), word).takesNextWord ? 2 : 1;
}

std::vector<std::string> SplitFields(std::string_view list) {
  std::vector<std::string> fields;
  for (const std::string_view field : BaseLibs::Split(list, ',')) {
    fields.emplace_back(BaseLibs::Trim(field));
    if (fields.back().empty()) throw UsageError("--fields: a name is empty");
  }
  return fields;
}

}  // namespace

Options OptionsFromEnvironment() {
  Options options;
  options.lab = Environment("AUTOCLI_LAB");
  options.host = Environment("AUTOCLI_HOST");
  if (options.host.empty()) options.host = Lab::kFirstHost;
  return options;
}

std::size_t CountOptionWords(std::span<const std::string> words) {
  std::size_t count = 0;
  while (count < words.size() && words[count].starts_with('-')) {
    count += WordsOfOption(words[count]);
  }
  return std::min(count, words.size());
}

Options ReadOptions(const std::vector<std::string>& arguments, Options options) {
  std::span<const std::string> own = std::span(arguments).first(CountOptionWords(arguments));
  options.words.assign(own.end(), std::span(arguments).end());
  options.fault.clear();
  if (own.empty()) return options;
  const auto take = [&options](std::span<const std::string> words) {
    options = TakeOptions(*CliTools::ParseParameters(*OptionsSpec(), {words.begin(), words.end()}),
                          options);
  };
  try {
    take(own);
    return options;
  } catch (const UsageError& error) {
    options.fault = error.what();
  }
  while (!own.empty()) {
    const auto option = own.first(std::min(WordsOfOption(own.front()), own.size()));
    own = own.subspan(option.size());
    try {
      take(option);
    } catch (const UsageError&) {
      continue;
    }
  }
  return options;
}

Options TakeOptions(const Input& given, Options options) {
  Take(given, "lab", options.lab);
  Take(given, "host", options.host);
  Take(given, "plugin-dir", options.pluginDir);
  Take(given, "formatter", options.formatter);
  Take(given, "batch", options.batch);
  Take(given, "completion", options.completion);
  Take(given, "reference", options.reference);
  if (given.HasParameter("fields")) options.fields = SplitFields(given.GetParameter("fields"));
  options.namesHost |= given.HasParameter("host");
  options.noHeader |= given.IsFlagSet("no-header");
  options.keepGoing |= given.IsFlagSet("keep-going");
  options.echo |= given.IsFlagSet("echo");
  options.list |= given.IsFlagSet("list");
  options.version |= given.IsFlagSet("version");
  options.help |= given.IsFlagSet("help");
  return options;
}

std::string ProgramTask(const Options& options) {
  const std::pair<const char*, bool> tasks[] = {
      {"--batch", !options.batch.empty()},
      {"--completion", !options.completion.empty()},
      {"--reference", !options.reference.empty()},
      {"--list", options.list},
      {"--version", options.version},
  };
  std::string task;
  for (const auto& [name, isGiven] : tasks) {
    if (!isGiven) continue;
    if (!task.empty()) throw UsageError(task + " and " + name + " do not go together");
    task = name;
  }
  if (options.batch.empty() && options.keepGoing)
    throw UsageError("--keep-going goes with --batch");
  if (options.batch.empty() && options.echo) throw UsageError("--echo goes with --batch");
  return task;
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
  return option != std::end(kOptions) && (option->value == "DIR" || option->value == "FILE");
}

const char* ProgramUsage() {
  return "autocli [OPTIONS] NAMESPACE... COMMAND [PARAMETERS]\n"
         "autocli help [NAMESPACE...] [COMMAND]\n"
         "autocli [OPTIONS] --batch FILE\n"
         "autocli --list | --version | --completion SHELL | --help";
}

std::vector<std::pair<std::string, std::string>> OptionRows() {
  std::vector<std::pair<std::string, std::string>> rows;
  for (const Option& option : kOptions) {
    std::string heading = option.letter.empty() ? "" : "-" + std::string(option.letter) + ", ";
    heading += "--" + std::string(option.name);
    if (!option.IsFlag()) heading += " " + std::string(option.value);
    rows.emplace_back(std::move(heading), option.description);
  }
  return rows;
}

const char* ExitStatusHelp() {
  return "0 success, 1 the command reported errors, 2 the command line is wrong, 3 the host "
         "(plug-in, lab) cannot be used, 4 the command ran, but its result could not be written "
         "(a full disk, a pipe without a reader). A batch's is the highest of its lines'.";
}

std::string OptionsHelp(const CliTools::Style& style) {
  constexpr std::size_t kUsageIndent = 7;  // below what follows "Usage: "
  return CliTools::Wrap(ProgramUsage(), kUsageIndent, style.width)
             .replace(0, kUsageIndent, "Usage: ") +
         "\nRuns a command on a stand-in host.\n" +
         CliTools::ColumnsHelp("Options", OptionRows(), style);
}

std::string DefaultLab() {
  std::string state = Environment("XDG_STATE_HOME");
  if (!state.starts_with('/')) {
    const std::string home = Environment("HOME");
    if (home.empty()) {
      throw BaseLibs::HostError(
          "there is no folder for the lab: name one with --lab or AUTOCLI_LAB");
    }
    state = home + "/.local/state";
  }
  return state + "/autocli/lab";
}

}  // namespace AutoCliProgram
