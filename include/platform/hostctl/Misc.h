#pragma once

#include <string>

#pragma GCC visibility push(default)

namespace HostCtl::Misc {

/// Returns the string that `printf` would print. Throws only `std::bad_alloc`.
[[gnu::format(printf, 1, 2)]] std::string StrPrintf(const char* format, ...);

}  // namespace HostCtl::Misc

#pragma GCC visibility pop
