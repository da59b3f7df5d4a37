// Completion of command lines, for shells.
#pragma once

#include <string>
#include <vector>

namespace AutoCliProgram {

/// Returns the completion script for the shell, which is one of `kCompletionScripts`. Throws
/// `HostError` when the program is installed without it.
std::string ReadCompletionScript(const std::string& shell);

/// Returns whether a completion script passed these arguments: "--complete", and the command line
/// up to the cursor as it was typed, with the program's name.
bool IsCompletionRequest(const std::vector<std::string>& arguments);

/// Prints the words that the line's last word can become, each on a line with a tab and its
/// description. The word "/" asks the shell to complete a path. Creates no lab. Prints nothing
/// after an error.
void CompleteLine(const std::string& line) noexcept;

}  // namespace AutoCliProgram
