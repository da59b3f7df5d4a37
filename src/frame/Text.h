// Texts that commands read and make: addresses, numbers, UUIDs, words of a shell.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/hostctl/DovraRecords.h"

namespace OrvaneCli::DovraNamespace {

/// The address that `text` spells, tried as IPv4 first; nothing when it is neither.
std::optional<HostCtl::Dovra::DovraIpAddress> ParseAddress(const std::string& text);

/// What a command says when `ParseAddress` yields nothing.
std::string InvalidAddressMessage(const std::string& text);

/// The nearest 32-bit number: the control library's ports are that wide, and a number that wraps
/// round could turn into a port that nobody asked for.
std::int32_t ClampToInt32(std::int64_t number);

/// A new random UUID's 36 characters; empty when there is none to be had.
std::string GenerateUuid();

/// What a command says when `GenerateUuid` yields nothing.
inline constexpr const char* kNoUuidMessage = "Unable to generate a UUID";

inline std::string Join(const std::vector<std::string>& texts, std::string_view separator) {
  std::string joined;
  for (const std::string& text : texts) {
    if (&text != &texts.front()) joined += separator;
    joined += text;
  }
  return joined;
}

/// `text` as one word of a shell's command line. Plain characters (letters, digits and
/// ". _ - , : / @ +") stand as they are; anything else is quoted, so that the shell hands on
/// exactly `text` and interprets none of it. The empty text is no word: it stays empty.
std::string ShellWord(const std::string& text);

}  // namespace OrvaneCli::DovraNamespace
