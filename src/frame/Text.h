// Strings that commands parse and make: addresses, numbers, UUIDs, words of a shell.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/hostctl/DovraRecords.h"

namespace OrvaneCli::DovraNamespace {

/// Parses an address, first as IPv4, then as IPv6; returns nothing when it is neither.
std::optional<HostCtl::Dovra::DovraIpAddress> ParseAddress(const std::string& text);

/// Returns the message for when `ParseAddress` returns nothing.
std::string InvalidAddressMessage(const std::string& text);

/// Returns the nearest 32-bit number. The control library's ports are that wide; a number that
/// wrapped round would name another port.
std::int32_t ClampToInt32(std::int64_t number);

/// Returns the 36 characters of a new random UUID; empty when none can be generated.
std::string GenerateUuid();

/// Reported when `GenerateUuid` returns an empty string.
inline constexpr const char* kNoUuidMessage = "Unable to generate a UUID";

/// Returns the strings with `separator` between them.
std::string Join(const std::vector<std::string>& texts, std::string_view separator);

/// Returns `text` as one word of a shell's command line. A string of letters, digits and
/// ". _ - , : / @ +" is returned unchanged, as is the empty string, which is no word; any other is
/// quoted, so that the shell interprets none of it.
std::string ShellWord(const std::string& text);

}  // namespace OrvaneCli::DovraNamespace
