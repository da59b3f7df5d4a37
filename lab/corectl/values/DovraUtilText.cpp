// The stateless utilities: strings to values and back.

#include <uuid/uuid.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "baselibs/Strings.h"
#include "platform/corectl/DovraUtil.h"

namespace CoreCtl::Dovra {

using HostCtl::Dovra::DovraPolicyClass;
using HostCtl::Dovra::Uuid;
using HostCtl::Lib::Dovra::DovraCtlException;

namespace {

constexpr std::array<std::pair<DovraPolicyClass, const char*>, 5> kPolicyClasses = {{
    {DovraPolicyClass::kCluster, "cluster"},
    {DovraPolicyClass::kVdisk, "vdisk"},
    {DovraPolicyClass::kVmNamespace, "vmnamespace"},
    {DovraPolicyClass::kVmSwap, "vmswap"},
    {DovraPolicyClass::kVmem, "vmem"},
}};

/// Returns the length of the first character in bytes. A stray or truncated byte counts as one.
std::size_t LengthOfCharacter(std::string_view text) {
  const auto first = static_cast<unsigned char>(text.front());
  const std::size_t length = first < 0xC0 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
  const auto rest = text.substr(1, length - 1);
  const bool isComplete = rest.size() == length - 1 && std::ranges::all_of(rest, [](char c) {
                            return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
                          });
  return isComplete ? length : 1;
}

}  // namespace

std::size_t DovraUtil::UTF8StringCharLength(const std::string& text) {
  std::size_t characters = 0;
  for (std::size_t offset = 0; offset < text.size(); ++characters) {
    offset += LengthOfCharacter(std::string_view(text).substr(offset));
  }
  return characters;
}

Uuid DovraUtil::StringToDovraUuid(const std::string& text) {
  Uuid uuid;
  const char* const begin = text.data();
  if (uuid_parse_range(begin, begin + text.size(), uuid.bytes.data()) != 0) {
    throw DovraCtlException("\"" + text +
                            "\" is not a UUID: expected 36 characters of the form "
                            "nnnnnnnn-nnnn-nnnn-nnnn-nnnnnnnnnnnn, each n a hexadecimal digit.");
  }
  return uuid;
}

std::string DovraUtil::DovraUuidToString(const Uuid& uuid) {
  char text[UUID_STR_LEN];
  uuid_unparse_lower(uuid.bytes.data(), text);
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
