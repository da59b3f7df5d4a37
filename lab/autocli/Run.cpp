#include "autocli/Run.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "autocli/Manual.h"
#include "autocli/Spinner.h"
#include "autocli/Terminal.h"
#include "baselibs/HostError.h"
#include "baselibs/Strings.h"
#include "clitools/CommandLine.h"
#include "clitools/Display.h"
#include "clitools/Format.h"
#include "clitools/Nodes.h"
#include "clitools/PluginError.h"
#include "corectl/session/Session.h"

namespace AutoCliProgram {

using namespace CliTools::AutoCli;
using namespace CliTools::MetaObj;
using CliTools::UsageError;

namespace {

/// Returns the formatter's parameters: the command's own, restricted to --fields, or to the
/// command's columns unless a formatter is given.
CommandSpec::Pairs ChooseFields(const Command& command, const MetaObject* layout,
                                const Options& options) {
  const auto& own = command.GetDefaultOutputParameters();
  if (!options.fields.empty()) return CliTools::SelectFields(layout, own, options.fields);
  const std::string columns = command.GetMetaDataField("columns");
  if (columns.empty() || !options.formatter.empty()) return own;
  return CliTools::SelectFields(layout, own, columns);
}

/// Returns the style of a result on standard output.
CliTools::Style StyleFor(const Options& options) {
  CliTools::Style style = ResultStyle();
  style.header = !options.noHeader;
  if (!options.formatter.empty()) style.width = 0;  // a table that is asked for stays a table
  return style;
}

/// Returns the formatter's name. Throws `UsageError` when it cannot show a result of this shape.
std::string ChooseFormatter(const Command& command, const MetaObject* layout,
                            const std::string& wanted) {
  if (wanted.empty()) return command.GetDefaultOutputFormatter();
  if (layout == nullptr) return wanted;
  const std::vector<std::string> allowed = CliTools::FormattersFor(*layout);
  if (std::ranges::find(allowed, wanted) == allowed.end()) {
    throw UsageError(
        "--formatter: " + CliTools::Quote(wanted) +
        " cannot show this command's result; allowed: " + BaseLibs::Join(allowed, ", "));
  }
  return wanted;
}

/// A call of a command, and how its result is shown.
struct Call {
  Options options;
  std::shared_ptr<CliTools::CallSpec::Input> input;
  std::string formatter;
  CommandSpec::Pairs formatterParameters;
};

/// Throws `UsageError` for options that do not go with a command.
void CheckOptions(const Command& command, const Options& options, const Options& before) {
  if (const std::string task = TaskOf(options); !task.empty()) {
    throw UsageError(task + " goes without a command");
  }
  if (options.pluginDirectory != before.pluginDirectory) {
    throw UsageError("--plugin-dir goes before the command");
  }
  if (!options.host.empty() && command.GetMetaDataField("scope") == "lab") {
    throw UsageError("--host: this command works on the whole lab, not on one host");
  }
}

Call PrepareCall(Command& command, const CliTools::CallSpec::InputSpec& input,
                 const std::vector<std::string>& words, const Options& before) {
  try {
    auto given = CliTools::ParseCommandLine(input, *OptionsSpec(), words);
    Call call;
    call.options = TakeOptions(*given.program, before);
    call.input = std::move(given.command);
    CheckOptions(command, call.options, before);
    const auto layout = CliTools::ShapeOf(command);
    call.formatter = ChooseFormatter(command, layout.get(), call.options.formatter);
    call.formatterParameters = ChooseFields(command, layout.get(), call.options);
    return call;
  } catch (const UsageError& error) {
    throw UsageError(CliTools::PathOf(command) + ": " + error.what());
  }
}

/// Asks on the terminal whether to go on with a command that has this consequence for the selected
/// lab. Throws `UsageError` when there is no terminal.
bool IsConfirmed(const Command& command, const std::string& consequence) {
  const std::string warning =
      consequence + " The lab is in " + CliTools::Quote(Lab::Selected().directory.string()) + '.';
  if (isatty(STDIN_FILENO) == 0 || isatty(STDERR_FILENO) == 0) {
    throw UsageError(CliTools::PathOf(command) + ": " + warning +
                     " Without a terminal to ask on, it takes --force");
  }
  std::fprintf(stderr, "%s Go on? [y/N] ", CliTools::Printable(warning).c_str());
  const int answer = std::getchar();
  int last = answer;
  // The rest of the line is not a line of a batch.
  while (last != '\n' && last != EOF) last = std::getchar();
  if (last == EOF) std::fputc('\n', stderr);  // the terminal showed no end of line
  return answer == 'y' || answer == 'Y';
}

/// Throws `HostError` when the command runs on a host that is powered off.
void RequirePower(const Command& command) {
  const bool runsOnHost = command.GetMetaDataField("scope").empty();
  if (runsOnHost && Lab::IsMade()) Lab::Session::Current().RequirePower();
}

/// Runs the command. Throws `HostError`; any other exception of the command becomes `PluginError`.
void Execute(Command& command, const Call& call,
             const std::shared_ptr<CliTools::CallSpec::Output>& output) {
  const std::string path = CliTools::Printable(CliTools::PathOf(command));
  const Spinner spinner(path);
  try {
    command.Execute(call.input, output);
  } catch (const BaseLibs::HostError&) {
    throw;
  } catch (...) {
    throw CliTools::ThrownBy(command);
  }
}

void PrintResult(const Command& command, const MetaObject& result, const Call& call) {
  CliTools::CheckResult(command, result);
  CliTools::Format(result, call.formatter, call.formatterParameters, StyleFor(call.options), Print);
}

bool IsEmptyList(const MetaObject& result) {
  return result.GetType() == MetaType::kList &&
         static_cast<const MetaList&>(result).GetElements().empty();
}

ExitStatus RunCommand(Command& command, const Call& call, const Options& options) {
  SelectLab(call.options);
  const std::string consequence = command.GetMetaDataField("confirm");
  if (!consequence.empty() && !call.input->IsFlagSet("force") &&
      !IsConfirmed(command, consequence)) {
    PrintError(options.location + "Nothing was done.");
    return kCommandFailed;
  }
  RequirePower(command);
  const bool mayCreateDefaultLab = call.options.lab.empty() && !Lab::IsMade();
  const auto output = CliTools::CallSpec::Output::New();
  Execute(command, call, output);
  if (mayCreateDefaultLab && Lab::IsMade()) {
    PrintRemark("Created a lab in " + CliTools::Quote(Lab::Selected().directory.string()) +
                "; --lab or AUTOCLI_LAB selects another directory.");
  }
  ExitStatus status = kSuccess;
  if (const auto& root = output->GetRootObject()) {
    status = Guard(options.location, [&] {
      PrintResult(command, *root, call);
      const bool hasFailed = !output->GetErrorMessages().empty();
      if (IsEmptyList(*root) && !hasFailed) PrintRemark("The list is empty.");
      return kSuccess;
    });
  }
  for (const std::string& message : output->GetErrorMessages()) {
    PrintError(options.location + message);
    status = std::max(status, kCommandFailed);
  }
  return status;
}

}  // namespace

ExitStatus RunCommandLine(CommandTree& tree, const Options& options) {
  const Target target = tree.Resolve(options.words);
  auto* const command = dynamic_cast<Command*>(target.node.get());
  const auto input =
      command == nullptr ? CliTools::CallSpec::InputSpec::New() : CliTools::InputOf(*command);
  const bool asksForHelp =
      options.help || CliTools::AsksForHelp(*input, *OptionsSpec(), target.arguments);
  if (asksForHelp && target.unknown.empty()) {
    Print(HelpOf(*target.node, HelpStyle()));
    return kSuccess;
  }
  if (!options.fault.empty()) throw UsageError(options.fault);
  if (const std::string task = TaskOf(options); !task.empty()) {
    throw UsageError(task + " goes without a command; " + CliTools::Quote(options.words.front()) +
                     " is one too many");
  }
  if (!target.unknown.empty()) RefuseWord(*target.node, target.unknown);
  if (command != nullptr) {
    return RunCommand(*command, PrepareCall(*command, *input, target.arguments, options), options);
  }
  const std::string fault = ReadOptions(target.arguments, options).fault;
  if (!fault.empty()) throw UsageError(fault);
  RefuseWord(*target.node, "");
}

std::string CommandList(CommandTree& tree, const Options& options) {
  auto layout = MetaStruct::New("CommandList");
  layout->SetField("Command", "");
  layout->SetField("Description", "");
  const auto list = MetaList::New(MetaType::kStruct, layout);
  const auto parameters = options.fields.empty()
                              ? CommandSpec::Pairs()
                              : CliTools::SelectFields(list.get(), {}, options.fields);
  for (const auto& command : CliTools::CommandsBelow(*tree.GetWhole())) {
    auto row = MetaStruct::New(layout->GetName());
    row->SetField("Command", CliTools::PathOf(*command));
    row->SetField("Description", command->GetDescription());
    list->Add(row);
  }
  return CliTools::Format(*list, options.formatter.empty() ? "table" : options.formatter,
                          parameters, StyleFor(options));
}

}  // namespace AutoCliProgram
