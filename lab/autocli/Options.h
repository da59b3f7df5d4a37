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
  std::string lab;  ///< folder; empty: the default one
  std::string host;
  bool namesHost = false;           ///< whether the line itself says which host
  std::string formatter;            ///< empty: the command's own
  std::vector<std::string> fields;  ///< of a record, in order; empty: all
  std::string pluginDir;            ///< empty: the one that belongs to the program
  bool noHeader = false;
  std::string batch;  ///< file of command lines, "-" for standard input; else empty
  bool keepGoing = false;
  bool echo = false;
  std::string completion;  ///< shell; else empty
  std::string reference;   ///< part of the manual; else empty
  bool list = false;
  bool version = false;
  bool help = false;
  std::vector<std::string> words;  ///< from the first namespace on
  std::string place;               ///< "FILE:LINE: " if the words come from a file
  std::string fault;               ///< what is wrong with the options before the words, if anything
};

/// What the options are if none is given.
Options OptionsFromEnvironment();

/// How many of the words, from the first on, are options and their values.
std::size_t CountOptionWords(std::span<const std::string> words);

/// Reads the options that a command line begins with; `options` is what holds for that which it
/// leaves open. If one of them is wrong, the result says so, and holds the others.
Options ReadOptions(const std::vector<std::string>& arguments, Options options);

/// Likewise from what was parsed already.
Options TakeOptions(const CliTools::CallSpec::Input& given, Options options);

/// The option that asks for something else than a command's call; empty if none does. Throws
/// `UsageError` for several, and for one that goes with such an option alone.
std::string ProgramTask(const Options& options);

/// The options as parameters: all, and those that say something of a command's call, which may
/// stand anywhere among its words.
std::shared_ptr<CliTools::CallSpec::InputSpec> OptionsSpec();
std::shared_ptr<CliTools::CallSpec::InputSpec> CallOptionsSpec();

/// Whether the value of this option is a path.
bool OptionTakesPath(std::string_view name);

/// The ways to call the program, each on a line.
const char* ProgramUsage();

/// The options with their letters and values, and what they are.
std::vector<std::pair<std::string, std::string>> OptionRows();

const char* ExitStatusHelp();

/// What `autocli --help` says of the program and its options.
std::string OptionsHelp(const CliTools::Style& style);

/// The folder for labs when nobody names one: below the user's folder for state. Throws `HostError`
/// when the user has none.
std::string DefaultLab();

}  // namespace AutoCliProgram
