// The words of autocli's own command line.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "clitools/Display.h"
#include "platform/clitools/CallSpec.h"

namespace AutoCliProgram {

struct Options {
  std::string lab;                  ///< directory; empty: the default one
  std::string host;                 ///< empty: `defaultHost`
  std::string formatter;            ///< empty: the command's own
  std::vector<std::string> fields;  ///< of a record, in order; empty: all
  bool noHeader = false;
  std::string pluginDirectory;  ///< empty: the one that belongs to the program
  std::string batch;            ///< file of command lines, "-" for standard input; else empty
  bool keepGoing = false;
  bool echo = false;
  std::string completion;  ///< shell; else empty
  std::string reference;   ///< format of the manual; else empty
  bool list = false;
  bool version = false;
  bool help = false;

  std::string defaultHost;
  std::vector<std::string> words;  ///< from the first namespace on
  std::string location;            ///< "FILE:LINE: " of a batch's line; else empty
  std::string fault;               ///< what is wrong with the options before the words, if anything
};

/// A shell with a completion script, and the script's path below share.
struct CompletionScript {
  std::string_view shell;
  const char* path;
};
inline constexpr CompletionScript kCompletionScripts[] = {
    {"bash", "bash-completion/completions/autocli"},
    {"zsh", "zsh/vendor-completions/_autocli"},
    {"fish", "fish/vendor_completions.d/autocli.fish"},
};

/// Returns the options of a command line that gives none.
Options OptionsFromEnvironment();

/// Returns how many of the words, from the first on, are options and their values.
std::size_t CountOptionWords(std::span<const std::string> words);

/// Reads the options that a command line begins with. `defaults` are the values of the others. If
/// an option is wrong, the result's `fault` says so, and the result holds the others.
Options ReadOptions(const std::vector<std::string>& arguments, const Options& defaults);

/// Returns `defaults` with the options that were given. Throws `UsageError` for an empty value.
Options TakeOptions(const CliTools::CallSpec::Input& given, Options defaults);

/// Returns the option that asks for something else than a command's call, such as "--list"; empty
/// when none does. Throws `UsageError` for several, and for an option that goes with another one.
std::string TaskOf(const Options& options);

/// The options as parameters: all, and those that may stand among a command's words.
std::shared_ptr<CliTools::CallSpec::InputSpec> OptionsSpec();
std::shared_ptr<CliTools::CallSpec::InputSpec> CallOptionsSpec();

/// Returns whether the option's value is a path.
bool OptionTakesPath(std::string_view name);

/// Returns the forms of a command line, one a line.
const char* ProgramUsage();

/// Returns the options with their letters and values, and their descriptions.
std::vector<std::pair<std::string, std::string>> OptionRows();

const char* ExitStatusHelp();

/// Returns the help on the program and its options.
std::string OptionsHelp(const CliTools::Style& style);

}  // namespace AutoCliProgram
