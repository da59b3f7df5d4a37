// Completion of command lines, for shells.
#pragma once

#include <string>
#include <vector>

namespace AutoCliProgram {

/// Returns the completion script for the shell, which is one of `kCompletionScripts`. Throws
/// `HostError` when the program is installed without it.
std::string ReadCompletionScript(const std::string& shell);

/// Whether these are the arguments with which the scripts call: "--complete" and the command line
/// up to the cursor, from the program's name on, as it was typed.
bool IsCompletionRequest(const std::vector<std::string>& arguments);

/// Prints what the line's last word can become, each on a line: the word, a tab and what it is.
/// A single "/" stands for any path. No lab is made, and nothing is said of what goes wrong: then
/// there is nothing to complete with.
void CompleteLine(const std::string& line) noexcept;

}  // namespace AutoCliProgram
