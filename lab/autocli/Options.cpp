#include "autocli/Options.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

#include "clitools/CommandLine.h"
#include "clitools/Format.h"
#include "clitools/Text.h"
#include "store/Sqlite.h"

namespace AutoCliProgram {

using CliTools::UsageError;
using CliTools::CallSpec::Input;
using CliTools::CallSpec::InputSpec;
using CliTools::CallSpec::ParameterConstraint;
using CliTools::CallSpec::ParameterConstraintType;
using CliTools::CallSpec::ParameterSpec;
using CliTools::CallSpec::ParameterType;

namespace {

std::shared_ptr<InputSpec> OptionsSpec() {
  auto spec = InputSpec::New();
  for (const char* const name : {"lab", "host", "plugin-dir", "formatter"}) {
    auto option = ParameterSpec::New(name, ParameterType::kString);
    if (option->GetName() == "formatter") {
      auto known = ParameterConstraint::New(ParameterConstraintType::kStringEnum);
      for (const std::string& formatter : CliTools::FormatterNames()) {
        known->AddStringEnum(formatter, "");
      }
      option->SetConstraint(known);
    }
    spec->AddParameter(option);
  }
  for (const char* const name : {"list", "version", "help"}) {
    auto flag = ParameterSpec::New(name, ParameterType::kFlag);
    flag->SetShortName(std::string(1, *name));
    if (flag->GetName() == "version") flag->SetShortName("V");
    spec->AddParameter(flag);
  }
  return spec;
}

bool TakesNextWord(const InputSpec& spec, const std::string& word) {
  for (const auto& option : spec.GetParameters()) {
    if (word == "--" + option->GetName()) return option->GetType() != ParameterType::kFlag;
  }
  return false;
}

/// How many words, from the first, are options and their values.
std::size_t CountOptionWords(const InputSpec& spec, const std::vector<std::string>& words) {
  std::size_t count = 0;
  while (count < words.size() && words[count].starts_with('-')) {
    count += TakesNextWord(spec, words[count]) ? 2 : 1;
  }
  return std::min(count, words.size());
}

std::string Environment(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

/// The option if it was given, else the environment's word.
std::string Choose(const Input& given, const char* option, const char* variable) {
  if (!given.HasParameter(option)) return variable == nullptr ? "" : Environment(variable);
  std::string value = given.GetParameter(option);
  if (value.empty()) throw UsageError(std::string("--") + option + ": the name is empty");
  return value;
}

}  // namespace

Options ReadOptions(const std::vector<std::string>& arguments) {
  const auto spec = OptionsSpec();
  const auto end =
      arguments.begin() + static_cast<std::ptrdiff_t>(CountOptionWords(*spec, arguments));
  const auto given = CliTools::ParseParameters(*spec, {arguments.begin(), end});
  Options options;
  options.lab = Choose(*given, "lab", "AUTOCLI_LAB");
  options.host = Choose(*given, "host", "AUTOCLI_HOST");
  if (options.host.empty()) options.host = "host1";
  options.pluginDir = Choose(*given, "plugin-dir", nullptr);
  options.formatter = given->GetParameter("formatter");
  options.list = given->IsFlagSet("list");
  options.version = given->IsFlagSet("version");
  options.help = given->IsFlagSet("help");
  options.words.assign(end, arguments.end());
  return options;
}

const char* OptionsHelp() {
  return R"(Usage: autocli [OPTIONS] NAMESPACE... COMMAND [PARAMETERS]
       autocli [OPTIONS] NAMESPACE... --help
       autocli --list | --version | --help

Runs a command on a stand-in host.

Options:
  --lab DIR         the lab's folder, made on first use; else $AUTOCLI_LAB, else
                    a folder below the user's folder for state
  --host NAME       the host on which the command runs; else $AUTOCLI_HOST, else
                    host1
  --formatter NAME  how the result is printed: simple, table, json, csv, xml or
                    keyvalue; else as the command sees fit
  --plugin-dir DIR  where the plug-ins are; else those that came with autocli
  -l, --list        list every command
  -V, --version     print the version
  -h, --help        print this, or the help of what stands before it

Exit status: 0 success, 1 the command reported errors, 2 the command line is
wrong, 3 the host (plug-in, lab) cannot be used.
)";
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
