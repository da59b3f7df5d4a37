#pragma once

#include <cstdint>
#include <string>

#pragma GCC visibility push(default)

namespace HostCtl::Network {

/// An IPv4 address; 0.0.0.0 by default.
class Ipv4Address {
 public:
  /// Returns whether `text` is four decimal numbers joined by ".", as `inet_pton` accepts them.
  static bool IsValidAddress(const std::string& text);

  Ipv4Address() = default;
  /// Throws `DovraCtlException` when `text` is not a valid address.
  explicit Ipv4Address(const std::string& text);

  std::string GetStringAddress() const;
  bool operator==(const Ipv4Address&) const = default;

 private:
  std::uint32_t address_ = 0;  // network byte order
};

/// An IPv6 address in the spelling in which it was given; "::" by default.
class Ipv6Address {
 public:
  /// Returns whether `text` is a spelling of an address that `inet_pton` accepts.
  static bool IsValidAddress(const std::string& text);

  Ipv6Address() = default;
  /// Throws `DovraCtlException` when `text` is not a valid address.
  explicit Ipv6Address(const std::string& text);

  const std::string& GetStringAddress() const { return text_; }
  /// Returns whether both are the same address, in any spelling.
  bool operator==(const Ipv6Address& other) const;

 private:
  std::string text_ = "::";
};

}  // namespace HostCtl::Network

#pragma GCC visibility pop
