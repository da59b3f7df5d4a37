#pragma once

#include <string_view>
#include <vector>

#include "autocli/Options.h"
#include "clitools/Candidates.h"

namespace AutoCliProgram {

/// Returns the values of a list that completion offers, such as "hosts", in the lab of the options
/// or on their host. Empty when there is no such list, or no lab: none is made. Throws `HostError`
/// when the lab cannot be used.
std::vector<CliTools::Candidate> CompletionValues(std::string_view list, const Options& options);

}  // namespace AutoCliProgram
