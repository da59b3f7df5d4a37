// Parsing the parameters of commands.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "clitools/UsageError.h"
#include "platform/clitools/CallSpec.h"

namespace CliTools {

/// Parses the words that follow a command: `-u X`, `-uX`, `--uuid X`, `--uuid=X`, joined flags
/// (`-wt`). A value is any string, even if it is empty or begins with a hyphen. Only flags and
/// lists may be repeated. Throws `UsageError` for a wrong word and for a missing parameter.
std::shared_ptr<CallSpec::Input> ParseParameters(const CallSpec::InputSpec& spec,
                                                 const std::vector<std::string>& arguments);

/// The values given to a command's parameters and to the program's own options.
struct CommandLine {
  std::shared_ptr<CallSpec::Input> command;
  std::shared_ptr<CallSpec::Input> program;
};

/// Parses words among which the program's options may be, too. A name or letter that both have
/// means the command's parameter. Throws `UsageError` as `ParseParameters` does.
CommandLine ParseCommandLine(const CallSpec::InputSpec& command, const CallSpec::InputSpec& program,
                             const std::vector<std::string>& arguments);

/// A word that gives options: "--name", "--name=VALUE", "-x", "-xVALUE", "-xyz".
struct OptionWord {
  std::vector<const CallSpec::ParameterSpec*> options;  ///< the caller's, up to an unknown one
  std::string unknown;               ///< that one with its hyphens; empty if all are known
  std::optional<std::string> value;  ///< of the last option, if it is part of the word
  bool takesNextWord = false;        ///< whether the next word is the last option's value
};

/// Parses a word that begins with a hyphen. Accepts any such word.
OptionWord ReadOptionWord(const std::vector<std::shared_ptr<CallSpec::ParameterSpec>>& parameters,
                          std::string_view word);

/// Whether one of the words before "--" is "help" or the option of that name, and not the value of
/// an option. Accepts any words.
bool AsksForHelp(const CallSpec::InputSpec& command, const CallSpec::InputSpec& program,
                 const std::vector<std::string>& arguments);

/// Returns what a constraint allows: "a, b" for an enumeration, "0 to 512" for a range.
std::string AllowedValues(const CallSpec::ParameterConstraint& constraint);

/// Describes a value of the parameter: "text", "one of a, b", "a whole number from 0 to 512". Gives
/// only the size of a long enumeration. Empty for a flag.
std::string ValueInWords(const CallSpec::ParameterSpec& parameter);

}  // namespace CliTools
