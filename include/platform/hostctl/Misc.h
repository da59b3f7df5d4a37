#pragma once

#include <string>

namespace HostCtl::Misc {

/// Formats like `printf` into a new text.
[[gnu::visibility("default"), gnu::format(printf, 1, 2)]] std::string StrPrintf(const char* format,
                                                                                ...);

}  // namespace HostCtl::Misc
