// What the commands for unicast agents share: an agent's parameters and its entry in the control
// library's list.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "frame/Frame.h"

namespace OrvaneCli::DovraNamespace {

inline Parameter AgentAddressParameter() {
  return {"addr", "a", ParameterType::kString, Need::kRequired, "IP address of the unicast agent."};
}
inline Parameter AgentPortParameter() {
  return {"port", "p", ParameterType::kInt, Need::kOptional,
          "Port the unicast agent is listening on."};
}

/// The port given, or the nearest 32-bit number, whether it is a port or not; else the default one.
std::int32_t ReadAgentPort(const InputPtr& input);

/// An agent as the control library lists it: six fields, each but the last ended by a ";". The last
/// one takes all that follows, further ";" included.
class UnicastAgentEntry {
 public:
  enum Field { kNodeUuid, kIsWitness, kSupportsUnicast, kAddress, kPort, kInterfaceName };

  explicit UnicastAgentEntry(const std::string& text);

  /// Whether all fields are there; if not, only `GetBrokenField` and `DescribeFault` apply.
  bool IsWhole() const { return GetBrokenField() == kInterfaceName; }
  /// The first field that no ";" ends; `kInterfaceName`, which needs none, in a whole entry.
  Field GetBrokenField() const { return static_cast<Field>(fields_.size() - 1); }
  /// Names the broken field and shows the entry.
  std::string DescribeFault() const;

  const std::string& GetText(Field field) const { return fields_[field]; }
  /// The decimal number that the field begins with, blanks and a sign allowed before it; 0 if there
  /// is none, the nearest 64-bit number if it is too large.
  std::int64_t GetNumber(Field field) const;

 private:
  std::vector<std::string> fields_;
};

}  // namespace OrvaneCli::DovraNamespace
