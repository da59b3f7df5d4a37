// Many command lines on one start of the program.
#pragma once

#include <functional>

#include "autocli/Options.h"
#include "autocli/Program.h"

namespace AutoCliProgram {

/// Runs one line's command line.
using RunLine = std::function<ExitStatus(const Options& line)>;

/// Runs each line of the file `options.batch` as a command line of its own, whose options are
/// `options` where it gives none. Ends at the first line that fails, unless told to keep going.
/// Returns the highest exit status of any line. Throws `UsageError` when the file cannot be read.
ExitStatus RunBatch(const Options& options, const RunLine& runLine);

}  // namespace AutoCliProgram
