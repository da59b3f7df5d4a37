#pragma once

#include <string>

namespace Lab {

/// The text of a new random UUID.
std::string NewUuid();
/// The text of the UUID that belongs to `name` and no other: the same each time.
std::string UuidOfName(const std::string& name);

}  // namespace Lab
