#include "cluster/UnicastAgent.h"

#include <cstdlib>

#include "frame/Text.h"

namespace OrvaneCli::DovraNamespace {

std::int32_t ReadAgentPort(const InputPtr& input) {
  return ClampToInt32(Given<std::int64_t>(input, "port").value_or(kDefaultUnicastPort));
}

UnicastAgentEntry::UnicastAgentEntry(const std::string& text) : text_(text) {
  std::size_t begin = 0;
  while (brokenField_ < kInterfaceName) {
    const std::size_t end = text.find(';', begin);
    if (end == std::string::npos) return;
    fields_[brokenField_] = text.substr(begin, end - begin);
    brokenField_ = static_cast<Field>(brokenField_ + 1);
    begin = end + 1;
  }
  fields_[kInterfaceName] = text.substr(begin);
}

std::string UnicastAgentEntry::DescribeFault() const {
  constexpr const char* kFieldNames[] = {"nodeuuid", "isWitness", "ucast support", "ip", "port"};
  return std::string("Invalid unicastAgent entry for ") + kFieldNames[brokenField_] + " " + text_;
}

std::int64_t UnicastAgentEntry::GetNumber(Field field) const {
  return std::strtoll(GetText(field).c_str(), nullptr, 10);
}

}  // namespace OrvaneCli::DovraNamespace
