// What the commands for unicast agents share: an agent's parameters and its entry in the control
// library's list.
#pragma once

#include <array>

#include "frame/Frame.h"

namespace OrvaneCli::DovraNamespace {

inline Parameter AgentAddressParameter() {
  return {"addr", "a", ParameterType::kString, Need::kRequired, "IP address of the unicast agent."};
}
inline Parameter AgentPortParameter() {
  return {"port", "p", ParameterType::kInt, Need::kOptional,
          "Port the unicast agent is listening on."};
}

/// Returns the port given, or the default port; the nearest 32-bit number when it is out of range.
std::int32_t ReadAgentPort(const InputPtr& input);

/// An agent as the control library lists it: six fields, each but the last ended by a ";". The last
/// one takes the rest of the entry, further ";" included.
class UnicastAgentEntry {
 public:
  enum Field { kNodeUuid, kIsWitness, kSupportsUnicast, kAddress, kPort, kInterfaceName };

  explicit UnicastAgentEntry(const std::string& text);

  /// Returns whether every ";" is there. If not, only `GetBrokenField` and `DescribeFault` apply.
  bool IsComplete() const { return brokenField_ == kInterfaceName; }
  /// Returns the first field that lacks its ";", or `kInterfaceName` when the entry is complete.
  Field GetBrokenField() const { return brokenField_; }
  /// Returns an error message that names the broken field and shows the entry.
  std::string DescribeFault() const;

  const std::string& GetText(Field field) const { return fields_[field]; }
  /// Returns the signed decimal number at the field's beginning, after blanks; 0 if there is none,
  /// the nearest 64-bit number if it is out of range.
  std::int64_t GetNumber(Field field) const;

 private:
  std::string text_;
  std::array<std::string, kInterfaceName + 1> fields_;
  Field brokenField_ = kNodeUuid;
};

}  // namespace OrvaneCli::DovraNamespace
