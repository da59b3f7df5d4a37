// Many command lines on one start of the program.
#pragma once

#include "autocli/CommandTree.h"
#include "autocli/Options.h"
#include "autocli/Run.h"

namespace AutoCliProgram {

/// Runs each line of the file `options.batch` as a command line of its own, whose options are
/// `options` where it gives none. Ends at the first line that fails, unless told to keep going.
/// Returns the gravest exit status among the lines' (with an end at the first failure: its). Throws
/// `UsageError` when the file cannot be read.
ExitStatus RunBatch(CommandTree& tree, const Options& options);

}  // namespace AutoCliProgram
