#include "autocli/Options.h"

#include <algorithm>
#include <utility>

#include "autocli/Reference.h"
#include "baselibs/Environment.h"
#include "clitools/CommandLine.h"
#include "clitools/Format.h"
#include "clitools/Help.h"
#include "store/LabError.h"

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

/// One option. `letter` is empty where there is none, `value` for a flag.
struct Option {
  const char* name;
  const char* letter;
  const char* value;
  const char* description;
};

constexpr Option kOptions[] = {
    {"lab", "", "DIR",
     "the lab's folder, made on first use; else $AUTOCLI_LAB, else a folder below the user's "
     "folder for state"},
    {"host", "", "NAME", "the host on which the command runs; else $AUTOCLI_HOST, else host1"},
    {"formatter", "", "NAME",
     "how the result is printed: simple, table, json, csv, xml or keyvalue; else as the command "
     "sees fit"},
    {"fields", "", "A,B,...", "which fields of the result's records are printed, in this order"},
    {"plugin-dir", "", "DIR", "where the plug-ins are; else those that came with autocli"},
    {"batch", "", "FILE",
     "run each line of the file, or of standard input if it is -, as a command line, up to the "
     "first that fails"},
    {"keep-going", "", "", "with --batch: up to the last line"},
    {"echo", "", "", "with --batch: print each line before its result"},
    {"completion", "", "SHELL",
     "print what makes bash, zsh or fish complete command lines, as in: source <(autocli "
     "--completion bash)"},
    {"reference", "", "NAME", "print the manual: markdown, autocli.1 or dovra.7"},
    {"list", "l", "", "list every command"},
    {"version", "V", "", "print the version"},
    {"help", "h", "", "print this, or the help of what stands before it"},
};

std::shared_ptr<ParameterConstraint> OneOf(const std::vector<std::string>& values) {
  auto constraint = ParameterConstraint::New(ParameterConstraintType::kStringEnum);
  for (const std::string& value : values) constraint->AddStringEnum(value, "");
  return constraint;
}

std::shared_ptr<ParameterConstraint> ConstraintFor(std::string_view option) {
  if (option == "formatter") return OneOf(CliTools::FormatterNames());
  if (option == "completion") return OneOf({"bash", "zsh", "fish"});
  if (option == "reference") return OneOf(ReferenceNames());
  return nullptr;
}

bool TakesNextWord(const std::string& word) {
  const auto isIt = [&word](const Option& option) {
    return word.starts_with("--") && word.substr(2) == option.name && *option.value != '\0';
  };
  return std::ranges::any_of(kOptions, isIt);
}

/// How many words, from the first, are options and their values.
std::size_t CountOptionWords(const std::vector<std::string>& words) {
  std::size_t count = 0;
  while (count < words.size() && words[count].starts_with('-')) {
    count += TakesNextWord(words[count]) ? 2 : 1;
  }
  return std::min(count, words.size());
}

/// Takes the option's value over, if it was given.
void Take(const Input& given, const char* option, std::string& value) {
  if (!given.HasParameter(option)) return;
  value = given.GetParameter(option);
  if (value.empty()) throw UsageError(std::string("--") + option + ": the name is empty");
}

std::vector<std::string> SplitFields(std::string_view list) {
  std::vector<std::string> fields;
  for (bool more = true; more;) {
    const std::size_t comma = list.find(',');
    more = comma != std::string_view::npos;
    std::string_view field = list.substr(0, comma);
    field.remove_prefix(std::min(field.find_first_not_of(' '), field.size()));
    field = field.substr(0, field.find_last_not_of(' ') + 1);
    if (field.empty()) throw UsageError("--fields: a name is empty");
    fields.emplace_back(field);
    if (more) list.remove_prefix(comma + 1);
  }
  return fields;
}

}  // namespace

Options OptionsFromEnvironment() {
  Options options;
  options.lab = Environment("AUTOCLI_LAB");
  options.host = Environment("AUTOCLI_HOST");
  if (options.host.empty()) options.host = "host1";
  return options;
}

Options ReadOptions(const std::vector<std::string>& arguments, Options options) {
  const auto end = arguments.begin() + static_cast<std::ptrdiff_t>(CountOptionWords(arguments));
  options.words.assign(end, arguments.end());
  if (end == arguments.begin()) return options;
  const auto given = CliTools::ParseParameters(*OptionsSpec(), {arguments.begin(), end});
  Take(*given, "lab", options.lab);
  Take(*given, "host", options.host);
  Take(*given, "plugin-dir", options.pluginDir);
  Take(*given, "formatter", options.formatter);
  Take(*given, "batch", options.batch);
  Take(*given, "completion", options.completion);
  Take(*given, "reference", options.reference);
  if (given->HasParameter("fields")) options.fields = SplitFields(given->GetParameter("fields"));
  options.namesHost |= given->HasParameter("host");
  options.keepGoing = given->IsFlagSet("keep-going");
  options.echo = given->IsFlagSet("echo");
  options.list = given->IsFlagSet("list");
  options.version = given->IsFlagSet("version");
  options.help = given->IsFlagSet("help");
  return options;
}

std::shared_ptr<InputSpec> OptionsSpec() {
  auto spec = InputSpec::New();
  for (const Option& option : kOptions) {
    auto parameter = ParameterSpec::New(
        option.name, *option.value == '\0' ? ParameterType::kFlag : ParameterType::kString);
    parameter->SetShortName(option.letter);
    parameter->SetDescription(option.description);
    parameter->SetConstraint(ConstraintFor(option.name));
    spec->AddParameter(std::move(parameter));
  }
  return spec;
}

const char* ProgramUsage() {
  return "autocli [OPTIONS] NAMESPACE... COMMAND [PARAMETERS]\n"
         "autocli [OPTIONS] NAMESPACE... [COMMAND] --help\n"
         "autocli [OPTIONS] --batch FILE\n"
         "autocli --list | --version | --completion SHELL | --help\n";
}

std::vector<std::pair<std::string, std::string>> OptionRows() {
  std::vector<std::pair<std::string, std::string>> rows;
  for (const Option& option : kOptions) {
    std::string heading = *option.letter == '\0' ? "" : "-" + std::string(option.letter) + ", ";
    heading += "--" + std::string(option.name);
    if (*option.value != '\0') heading += " " + std::string(option.value);
    rows.emplace_back(std::move(heading), option.description);
  }
  return rows;
}

const char* ExitStatusHelp() {
  return "0 success, 1 the command reported errors, 2 the command line is wrong, 3 the host "
         "(plug-in, lab) cannot be used, 4 the command ran, but its result could not be written. A "
         "batch's is the highest of its lines'.";
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
      throw Lab::LabError("there is no folder for the lab: name one with --lab or AUTOCLI_LAB");
    }
    state = home + "/.local/state";
  }
  return state + "/autocli/lab";
}

}  // namespace AutoCliProgram
