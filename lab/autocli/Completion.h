// Completion of command lines, for shells.
#pragma once

#include <string>

namespace AutoCliProgram {

/// Returns the completion script for the shell, which is one of `kCompletionScripts`. Throws
/// `HostError` when the program is installed without it.
std::string ReadCompletionScript(const std::string& shell);

/// Prints the words that the line's last word can become, each on a line with a tab and its
/// description. The word "/" asks the shell to complete a path. `line` is the command line up to
/// the cursor as it was typed, with the program's name. Sets the variables assigned in it. Creates
/// no lab, and prints nothing after an error. Ends the process after two seconds.
void CompleteLine(const std::string& line) noexcept;

}  // namespace AutoCliProgram
