#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace BaseLibs {

struct Outcome {
  int status = -1;  ///< exit status, 128 plus the number of the signal that ended the program, or
                    ///< -1 when it could not be run
  std::string output;  ///< what it wrote to standard output and standard error
};

/// Runs the program at the path `words.front()`, the other words as its arguments and `input` as
/// its standard input, and waits until it ends; not for what it leaves running, even if that holds
/// its output open. Throws nothing of its own. Not for several threads at once: for as long as it
/// takes, SIGCHLD has its default effect.
Outcome RunProgram(std::vector<std::string> words, std::string_view input = {});

}  // namespace BaseLibs
