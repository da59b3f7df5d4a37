// The words of autocli's own command line.
#pragma once

#include <string>
#include <vector>

namespace AutoCliProgram {

struct Options {
  std::string lab;  ///< folder; empty: the default one
  std::string host;
  std::string formatter;  ///< empty: the command's own
  std::string pluginDir;  ///< empty: the one that belongs to the program
  bool list = false;
  bool version = false;
  bool help = false;
  std::vector<std::string> words;  ///< from the first namespace on
};

/// Reads the command line, with the environment for what it leaves open. Throws `UsageError`.
Options ReadOptions(const std::vector<std::string>& arguments);

/// What `autocli --help` says of the options.
const char* OptionsHelp();

/// The folder for labs when nobody names one: below the user's folder for state. Throws `LabError`
/// when the user has none.
std::string DefaultLab();

}  // namespace AutoCliProgram
