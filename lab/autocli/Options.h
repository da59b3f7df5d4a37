// The words of autocli's own command line.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "clitools/Text.h"
#include "platform/clitools/CallSpec.h"

namespace AutoCliProgram {

struct Options {
  std::string lab;  ///< folder; empty: the default one
  std::string host;
  bool namesHost = false;           ///< whether the line itself says which host
  std::string formatter;            ///< empty: the command's own
  std::vector<std::string> fields;  ///< of a record, in order; empty: all
  std::string pluginDir;            ///< empty: the one that belongs to the program
  std::string batch;                ///< file of command lines, "-" for standard input; else empty
  bool keepGoing = false;
  bool echo = false;
  std::string completion;  ///< shell; else empty
  std::string reference;   ///< part of the manual; else empty
  bool list = false;
  bool version = false;
  bool help = false;
  std::vector<std::string> words;  ///< from the first namespace on
  std::string place;               ///< "FILE:LINE: " if the words come from a file
};

/// What the options are if none is given.
Options OptionsFromEnvironment();

/// Reads a command line; `options` is what holds for that which it leaves open. Throws
/// `UsageError`.
Options ReadOptions(const std::vector<std::string>& arguments, Options options);

/// The options as parameters.
std::shared_ptr<CliTools::CallSpec::InputSpec> OptionsSpec();

/// The ways to call the program, each on a line.
const char* ProgramUsage();

/// The options with their letters and values, and what they are.
std::vector<std::pair<std::string, std::string>> OptionRows();

const char* ExitStatusHelp();

/// What `autocli --help` says of the program and its options.
std::string OptionsHelp(const CliTools::Style& style);

/// The folder for labs when nobody names one: below the user's folder for state. Throws `LabError`
/// when the user has none.
std::string DefaultLab();

}  // namespace AutoCliProgram
