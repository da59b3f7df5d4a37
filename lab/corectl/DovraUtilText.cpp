// The utilities that need no host: texts to values and back.

#include <algorithm>
#include <array>
#include <utility>

#include "baselibs/Text.h"
#include "platform/corectl/DovraUtil.h"

namespace CoreCtl::Dovra {

using HostCtl::Dovra::DovraPolicyClass;
using HostCtl::Dovra::Uuid;
using HostCtl::Lib::Dovra::DovraCtlException;

namespace {

constexpr std::size_t kUuidLength = 36;

bool IsHyphenPlace(std::size_t place) {
  return place == 8 || place == 13 || place == 18 || place == 23;
}

/// The digit's value, or -1 if it is none.
int HexValue(char digit) {
  if (digit >= '0' && digit <= '9') return digit - '0';
  if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
  if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
  return -1;
}

constexpr std::array<std::pair<DovraPolicyClass, const char*>, 5> kPolicyClasses = {{
    {DovraPolicyClass::kCluster, "cluster"},
    {DovraPolicyClass::kVdisk, "vdisk"},
    {DovraPolicyClass::kVmNamespace, "vmnamespace"},
    {DovraPolicyClass::kVmSwap, "vmswap"},
    {DovraPolicyClass::kVmem, "vmem"},
}};

}  // namespace

std::size_t DovraUtil::UTF8StringCharLength(const std::string& text) {
  // Every byte but a continuation byte begins a character.
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

Uuid DovraUtil::StringToDovraUuid(const std::string& text) {
  const auto refuse = [&text] {
    return DovraCtlException("\"" + text +
                             "\" is not a UUID: expected 36 characters of the form "
                             "nnnnnnnn-nnnn-nnnn-nnnn-nnnnnnnnnnnn, each n a hexadecimal digit.");
  };
  if (text.size() != kUuidLength) throw refuse();
  Uuid uuid;
  std::size_t digits = 0;
  for (std::size_t place = 0; place < kUuidLength; ++place) {
    if (IsHyphenPlace(place)) {
      if (text[place] != '-') throw refuse();
      continue;
    }
    const int value = HexValue(text[place]);
    if (value < 0) throw refuse();
    auto& byte = uuid.bytes[digits++ / 2];
    byte = static_cast<std::uint8_t>(unsigned{byte} << 4U | static_cast<unsigned>(value));
  }
  return uuid;
}

std::string DovraUtil::DovraUuidToString(const Uuid& uuid) {
  constexpr const char* kDigits = "0123456789abcdef";
  std::string text;
  text.reserve(kUuidLength);
  for (const std::uint8_t byte : uuid.bytes) {
    if (IsHyphenPlace(text.size())) text += '-';
    text += kDigits[byte >> 4U];
    text += kDigits[byte & 0xFU];
  }
  return text;
}

DovraPolicyClass DovraUtil::StringToDovraPolicyClass(const std::string& text) {
  for (const auto& [policyClass, name] : kPolicyClasses) {
    if (text == name) return policyClass;
  }
  throw DovraCtlException(
      "Unknown policy class \"" + text + "\"; the classes are " +
      BaseLibs::Join(kPolicyClasses, ", ", &decltype(kPolicyClasses)::value_type::second) + ".");
}

std::string DovraUtil::DovraPolicyClassToString(DovraPolicyClass policyClass) {
  for (const auto& [known, name] : kPolicyClasses) {
    if (known == policyClass) return name;
  }
  throw DovraCtlException("Unknown policy class.");
}

std::vector<DovraPolicyClass> DovraUtil::GetDovraPolicyClasses() {
  std::vector<DovraPolicyClass> classes;
  classes.reserve(kPolicyClasses.size());
  for (const auto& [policyClass, name] : kPolicyClasses) classes.push_back(policyClass);
  return classes;
}

}  // namespace CoreCtl::Dovra
