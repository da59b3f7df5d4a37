#pragma once

#include <string_view>
#include <vector>

#include "autocli/Options.h"
#include "clitools/Candidates.h"

namespace AutoCliProgram {

/// Returns the values of a list, such as "hosts", in the lab or on the host of the options. Empty
/// when the list or the lab does not exist. Throws `HostError` when the lab cannot be used.
std::vector<CliTools::Candidate> CompletionValues(std::string_view list, const Options& options);

}  // namespace AutoCliProgram
