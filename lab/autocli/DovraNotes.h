#pragma once

#include <string_view>

namespace AutoCliProgram {

/// What `CommandNotes.h` adds to a command below `dovra`.
struct DovraNotes {
  std::string_view path;
  const char* valueLists;  ///< as in the metadata field "values"
  const char* examples;    ///< as in the metadata field "examples"
};

/// Returns null when the command has no notes.
const DovraNotes* FindDovraNotes(std::string_view path);

}  // namespace AutoCliProgram
