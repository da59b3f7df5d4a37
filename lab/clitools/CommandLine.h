// From what a user typed to a command's parameters.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "clitools/UsageError.h"
#include "platform/clitools/CallSpec.h"

namespace CliTools {

/// Reads the words that follow a command: `-u X`, `-uX`, `--uuid X`, `--uuid=X`, flags in a cluster
/// (`-wt`). A value is taken exactly as it is, also if it begins with a hyphen or is empty; a list
/// is given by repeating its option. Throws `UsageError` for what the parameters do not allow.
std::shared_ptr<CallSpec::Input> ParseParameters(const CallSpec::InputSpec& spec,
                                                 const std::vector<std::string>& arguments);

/// What was given of a command's parameters, and of the program's own options.
struct CommandLine {
  std::shared_ptr<CallSpec::Input> command;
  std::shared_ptr<CallSpec::Input> program;
};

/// Likewise where options of the program may stand among a command's. One whose name or letter the
/// command has too is the command's.
CommandLine ParseCommandLine(const CallSpec::InputSpec& command, const CallSpec::InputSpec& program,
                             const std::vector<std::string>& arguments);

/// A word that begins with a hyphen: "--name", "--name=VALUE", "-x", "-xVALUE", "-xyz".
struct OptionWord {
  std::vector<const CallSpec::ParameterSpec*> options;  ///< up to the first unknown one
  std::string unknown;               ///< that one with its hyphens; empty if all are known
  std::optional<std::string> value;  ///< of the last option, if it is part of the word
  bool takesNextWord = false;        ///< whether the next word is the last option's value
};

/// Reads the word, and accepts whatever it holds.
OptionWord ReadOptionWord(const std::vector<std::shared_ptr<CallSpec::ParameterSpec>>& parameters,
                          std::string_view word);

/// Returns whether the words, read from left to right up to "--", hold "help" or an option called
/// so where no option awaits its value. What else is wrong with the words does not matter.
bool AsksForHelp(const CallSpec::InputSpec& command, const CallSpec::InputSpec& program,
                 const std::vector<std::string>& arguments);

/// What a constraint allows: "a, b" for an enumeration, "0 to 512" for a range.
std::string AllowedValues(const CallSpec::ParameterConstraint& constraint);

/// What one value of a parameter is, in words: "text", "one of a, b", "a whole number from 0 to
/// 512". Of a long enumeration no more than that. Empty for a flag, which has none.
std::string ValueInWords(const CallSpec::ParameterSpec& parameter);

}  // namespace CliTools
