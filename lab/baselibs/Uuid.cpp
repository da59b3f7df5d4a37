#include "platform/baselibs/Uuid.h"

#include <uuid/uuid.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

// The long form of a UUID is its URN.
constexpr char kPrefix[] = "urn:uuid:";
constexpr std::size_t kPrefixLength = sizeof kPrefix - 1;
constexpr std::size_t kTextLength = UUID_STR_LEN - 1;

}  // namespace

extern "C" {

char* UUID_CreateRandom() {
  auto* const buffer = static_cast<char*>(std::malloc(kPrefixLength + UUID_STR_LEN));
  if (buffer == nullptr) return nullptr;
  uuid_t uuid;
  uuid_generate_random(uuid);
  std::memcpy(buffer, kPrefix, kPrefixLength);
  uuid_unparse_lower(uuid, buffer + kPrefixLength);
  return buffer;
}

char* UUID_PackText(const char* source, char* destination, std::size_t length) {
  if (length < kTextLength || std::strncmp(source, kPrefix, kPrefixLength) != 0) return nullptr;
  const char* const text = source + kPrefixLength;
  uuid_t uuid;
  if (uuid_parse(text, uuid) != 0) return nullptr;
  std::memmove(destination, text, kTextLength + 1);
  return destination;
}

int Str_Snprintf(char* destination, std::size_t size, const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  const int length = std::vsnprintf(destination, size, format, arguments);
  va_end(arguments);
  return length < 0 || static_cast<std::size_t>(length) >= size ? -1 : length;
}

}  // extern "C"
