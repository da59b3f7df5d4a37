#pragma once

#include <string>
#include <vector>

#include "autocli/Options.h"
#include "clitools/Candidates.h"

namespace AutoCliProgram {

/// What the parameter of the command can be: names, devices and UUIDs that are in the lab of the
/// options, or on their host. Empty when nothing is known of the parameter, or there is no lab:
/// none is made. Throws `HostError` when the lab cannot be used.
std::vector<CliTools::Candidate> LabValues(const std::string& command, const std::string& parameter,
                                           const Options& options);

}  // namespace AutoCliProgram
