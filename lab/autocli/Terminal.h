// Standard output and standard error. Only a terminal gets escape sequences.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "clitools/Display.h"

namespace AutoCliProgram {

/// Returns whether the descriptor is a terminal that interprets escape sequences, and NO_COLOR is
/// empty.
bool TakesEscapes(int descriptor);

/// Returns the style of results on standard output: as wide as needed unless it is a terminal.
CliTools::Style ResultStyle();
/// Returns the style of help on standard output: as wide as the terminal, at least 40.
CliTools::Style HelpStyle();

/// A result cannot be written to standard output. `what()` names the reason.
class OutputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Writes to standard output. Throws `OutputError` when it cannot write everything.
void Print(std::string_view text);

/// Prints a remark to standard error, but only when standard output is a terminal.
void PrintRemark(const std::string& text);

/// Prints an error to standard error, as one line.
void PrintError(const std::string& text);

}  // namespace AutoCliProgram
