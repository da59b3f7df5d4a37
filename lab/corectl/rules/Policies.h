#pragma once

#include <string>

namespace Lab {

/// Refuses a policy that the storage service could not apply. A policy is a list of
/// "attribute=value", separated by commas or blanks.
void CheckPolicy(const std::string& policy);

}  // namespace Lab
