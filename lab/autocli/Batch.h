// Batches: files of command lines.
#pragma once

#include <functional>

#include "autocli/Options.h"
#include "autocli/Program.h"

namespace AutoCliProgram {

/// Runs a command line that is given by its options.
using RunLine = std::function<ExitStatus(const Options& line)>;

/// Runs each line of the file `options.batch` as a command line, with `options` as defaults for its
/// own options. Stops at the first line that fails, unless `options.keepGoing` is set, and when
/// standard output fails. Returns the highest exit status of any line. Throws `UsageError` when the
/// file cannot be read, `HostError` without memory, and `OutputError` when --echo cannot write.
ExitStatus RunBatch(const Options& options, const RunLine& runLine);

}  // namespace AutoCliProgram
