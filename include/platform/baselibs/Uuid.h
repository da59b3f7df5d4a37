// The base library's UUIDs and bounded formatting, which have C linkage.
#pragma once

#include <cstddef>

#pragma GCC visibility push(default)

extern "C" {

/// Returns a new string, a random UUID in the library's long form, which the caller releases with
/// `free`; null on failure. The long form has at least 36 characters.
char* UUID_CreateRandom();

/// Converts a UUID from the long form to its 36 characters, in upper or lower case as the library
/// chooses. `destination` has room for `length` characters and a terminating zero byte, and may be
/// `source`. Returns `destination`; null, with nothing written, when `source` is no UUID in the
/// long form or the room does not suffice.
char* UUID_PackText(const char* source, char* destination, std::size_t length);

/// Formats like `snprintf`, and always writes a terminating zero byte. Returns the number of
/// characters written before it, or -1 when the string was cut.
[[gnu::format(printf, 3, 4)]] int Str_Snprintf(char* destination, std::size_t size,
                                               const char* format, ...);

}  // extern "C"

#pragma GCC visibility pop
