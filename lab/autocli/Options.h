// autocli's own options.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/clitools/CallSpec.h"

namespace AutoCliProgram {

struct Options {
  std::string lab;        ///< directory; empty: the default one
  std::string host;       ///< empty: `defaultHost`
  std::string formatter;  ///< empty: the command's own
  std::string fields;     ///< of a record, in order, separated by commas; empty: default
  bool noHeader = false;
  std::string pluginDirectory;  ///< empty: the installed plug-ins'
  std::string batch;            ///< file of command lines, "-" for standard input; empty: none
  bool keepGoing = false;
  bool echo = false;
  std::string completion;  ///< shell; empty: none
  std::string reference;   ///< format of the manual; empty: none
  bool list = false;
  bool version = false;
  bool help = false;

  std::string defaultHost;
  std::vector<std::string> words;  ///< from the first namespace on
  std::string location;            ///< "FILE:LINE: " of a batch's line; empty outside a batch
  std::string fault;               ///< message about a wrong option before the words; empty: none
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

/// Reads the options that a command line begins with, on top of `defaults`. After a wrong option,
/// the result holds the others and a `fault`.
Options ReadOptions(const std::vector<std::string>& arguments, const Options& defaults);

/// Returns `options` with those that are given on top. Throws `UsageError` for an empty value.
Options TakeOptions(const CliTools::CallSpec::Input& given, Options options);

/// Returns the option that replaces a command, such as "--list"; empty when none is given. Throws
/// `UsageError` for two of them, and for --keep-going or --echo without --batch.
std::string TaskOf(const Options& options);

/// Return the options as parameters: all, or those that may follow a command.
std::shared_ptr<CliTools::CallSpec::InputSpec> OptionsSpec();
std::shared_ptr<CliTools::CallSpec::InputSpec> CallOptionsSpec();

/// Returns whether the option's value is a path.
bool OptionTakesPath(std::string_view name);

/// Returns the options with their letters and values, and their descriptions.
std::vector<std::pair<std::string, std::string>> OptionRows();

}  // namespace AutoCliProgram
