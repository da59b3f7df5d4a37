// The base library's UUIDs and bounded formatting. Plain C, as the library is.
#pragma once

#include <cstddef>

#pragma GCC visibility push(default)

extern "C" {

/// A new text that holds a random UUID in the library's long form; null if there is none to be
/// had. The caller releases it with `free`.
char* UUID_CreateRandom();

/// Turns a UUID's long form into its 36 characters. `destination` has room for `length`
/// characters and the terminating zero, and may be `source` itself. Returns `destination`, or null,
/// with nothing written, when `source` holds no UUID or the room does not suffice.
char* UUID_PackText(const char* source, char* destination, std::size_t length);

/// Like `snprintf`, but always ends the text with a zero, and returns -1 when it was cut short.
[[gnu::format(printf, 3, 4)]] int Str_Snprintf(char* destination, std::size_t size,
                                               const char* format, ...);

}  // extern "C"

#pragma GCC visibility pop
