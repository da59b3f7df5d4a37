#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace BaseLibs {

struct Outcome {
  int status = -1;  ///< exit status, 128 plus the number of the signal that ended the program, or
                    ///< -1 when it could not be started
  std::string output;  ///< what it wrote to standard output and standard error
};

/// Runs the program at the path `words.front()` with the other words as its arguments and `input`
/// as its standard input, and waits until it ends, but not for processes that it leaves running.
/// Single-threaded callers only: meanwhile SIGCHLD and SIGPIPE have their default effects.
Outcome RunProgram(std::vector<std::string> words, std::string_view input = {});

}  // namespace BaseLibs
