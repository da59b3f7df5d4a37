#include "platform/hostctl/Network.h"

#include <arpa/inet.h>

#include "platform/hostctl/DovraCtlException.h"

namespace HostCtl::Network {

using Lib::Dovra::DovraCtlException;

namespace {

/// Parses an address of `family` into `address`. False when the string is none.
bool Parse(int family, const std::string& text, void* address) {
  // inet_pton would stop at a NUL byte.
  return text.find('\0') == std::string::npos && inet_pton(family, text.c_str(), address) == 1;
}

in6_addr Binary(const std::string& text) {
  in6_addr address{};
  Parse(AF_INET6, text, &address);
  return address;
}

}  // namespace

bool Ipv4Address::IsValidAddress(const std::string& text) {
  in_addr address{};
  return Parse(AF_INET, text, &address);
}

Ipv4Address::Ipv4Address(const std::string& text) {
  in_addr address{};
  if (!Parse(AF_INET, text, &address)) {
    throw DovraCtlException("\"" + text + "\" is not an IPv4 address.");
  }
  address_ = address.s_addr;
}

std::string Ipv4Address::GetStringAddress() const {
  char text[INET_ADDRSTRLEN];
  const in_addr address{address_};
  return inet_ntop(AF_INET, &address, text, sizeof text);
}

bool Ipv6Address::IsValidAddress(const std::string& text) {
  in6_addr address{};
  return Parse(AF_INET6, text, &address);
}

Ipv6Address::Ipv6Address(const std::string& text) : text_(text) {
  if (!IsValidAddress(text)) {
    throw DovraCtlException("\"" + text + "\" is not an IPv6 address.");
  }
}

bool Ipv6Address::operator==(const Ipv6Address& other) const {
  const in6_addr mine = Binary(text_);
  const in6_addr theirs = Binary(other.text_);
  return IN6_ARE_ADDR_EQUAL(&mine, &theirs);
}

}  // namespace HostCtl::Network
