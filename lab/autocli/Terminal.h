// Standard output and standard error: a terminal with a person before it, or something else, which
// gets plain text.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "clitools/Display.h"

namespace AutoCliProgram {

/// Whether what is written to the descriptor may hold escape sequences: it is a terminal that acts
/// on them, and the user has not asked for plain text (NO_COLOR).
bool TakesEscapes(int descriptor);

/// The columns of the terminal, or of a page if the descriptor is none.
std::size_t ColumnsOf(int descriptor);

/// How results look on standard output, and how help does, which keeps to a page everywhere.
CliTools::Style ResultStyle();
CliTools::Style HelpStyle();

/// Standard output does not take a result. `what()` says why.
class OutputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Writes to standard output. Throws `OutputError` when not all of it could be written.
void Print(std::string_view text);

/// Tells somebody who sees standard output something on standard error that is no part of a result.
/// Nothing where it is no terminal.
void PrintRemark(const std::string& text);

/// Writes one line to standard error.
void PrintError(const std::string& text);

}  // namespace AutoCliProgram
