#include "frame/Text.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>

#include "platform/baselibs/Uuid.h"

namespace OrvaneCli::DovraNamespace {

using HostCtl::Dovra::DovraIpAddress;
using HostCtl::Network::Ipv4Address;
using HostCtl::Network::Ipv6Address;

std::optional<DovraIpAddress> ParseAddress(const std::string& text) {
  if (Ipv4Address::IsValidAddress(text)) return DovraIpAddress(Ipv4Address(text));
  if (Ipv6Address::IsValidAddress(text)) return DovraIpAddress(Ipv6Address(text));
  return std::nullopt;
}

std::string InvalidAddressMessage(const std::string& text) {
  return "Invalid IP address " + text;
}

std::int32_t ClampToInt32(std::int64_t number) {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(number, Limits::min(), Limits::max()));
}

std::string GenerateUuid() {
  const auto release = [](char* text) { std::free(text); };
  const std::unique_ptr<char, decltype(release)> buffer(UUID_CreateRandom(), release);
  if (!buffer) return {};
  if (UUID_PackText(buffer.get(), buffer.get(), std::strlen(buffer.get())) == nullptr) return {};
  return buffer.get();
}

std::string Join(const std::vector<std::string>& texts, std::string_view separator) {
  std::string joined;
  for (const std::string& text : texts) {
    if (&text != &texts.front()) joined += separator;
    joined += text;
  }
  return joined;
}

std::string ShellWord(const std::string& text) {
  constexpr const char* kPlain =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789._-,:/@+";
  if (text.find_first_not_of(kPlain) == std::string::npos) return text;
  std::string word = "'";
  for (const char c : text) {
    if (c == '\'') {
      word += "'\\''";  // close the quotes, add one that is escaped, open them again
    } else {
      word += c;
    }
  }
  return word + "'";
}

}  // namespace OrvaneCli::DovraNamespace
