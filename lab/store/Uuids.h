#pragma once

#include <string>

namespace Lab {

/// Stands for "none".
inline constexpr const char* kNilUuid = "00000000-0000-0000-0000-000000000000";

bool IsUuid(const std::string& text);
/// The text of a new random UUID.
std::string NewUuid();
/// The text of the name-based UUID of `name`: the same each time.
std::string UuidOfName(const std::string& name);

}  // namespace Lab
