// A command line as people write it: the words of one line of text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace CliTools {

/// The words of a line, as a shell would take them: blanks separate them; '...', "..." and a
/// backslash keep characters as they are; "#" at the beginning of a word makes the rest a comment.
/// Nothing is expanded, and no character has another meaning. Throws `UsageError` for a quote that
/// has no end and a backslash that nothing follows.
std::vector<std::string> SplitWords(std::string_view line);

/// Whether the line ends in a backslash that escapes the end of the line.
bool GoesOn(std::string_view line);

/// The words of a line that somebody is still typing. The last one is where the cursor is: empty
/// behind a blank, without the end of its quote if that is missing.
std::vector<std::string> SplitTyped(std::string_view line);

}  // namespace CliTools
