#pragma once

#include <string>

#pragma GCC visibility push(default)

namespace HostCtl::Misc {

/// Formats like `printf` into a new text. Throws nothing of its own.
[[gnu::format(printf, 1, 2)]] std::string StrPrintf(const char* format, ...);

}  // namespace HostCtl::Misc

#pragma GCC visibility pop
