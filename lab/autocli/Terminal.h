// Standard output and standard error: a terminal with a person before it, or something else, which
// gets plain text.
#pragma once

#include <string>

#include "clitools/Text.h"

namespace AutoCliProgram {

/// Whether what is written to the descriptor may be dressed up: it is a terminal that can do more
/// than print, and the user has not asked for plain text (NO_COLOR).
bool IsDressed(int descriptor);

/// The columns of the terminal, or of a page if the descriptor is none.
std::size_t ColumnsOf(int descriptor);

/// How results look on standard output, and how help does, which keeps to a page everywhere.
CliTools::Style ResultStyle();
CliTools::Style HelpStyle();

/// Writes to standard output. Throws `LabError` when not all of it could be written.
void Print(const std::string& text);

/// Writes one line to standard error.
void PrintError(const std::string& text);

}  // namespace AutoCliProgram
