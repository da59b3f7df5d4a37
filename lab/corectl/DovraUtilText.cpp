// The utilities that need no host: texts to values and back.

#include <uuid/uuid.h>

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
  Uuid uuid;
  // By its length too: a text that goes on behind a zero byte is not the UUID before it.
  if (text.size() != UUID_STR_LEN - 1 || uuid_parse(text.c_str(), uuid.bytes.data()) != 0) {
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
