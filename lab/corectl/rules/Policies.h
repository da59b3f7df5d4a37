#pragma once

#include <string>

namespace Lab {

/// Refuses an invalid policy. A policy is a list of "attribute=value", separated by commas or
/// blanks.
void CheckPolicy(const std::string& policy);

}  // namespace Lab
