#include "corectl/rules/Addresses.h"

#include <arpa/inet.h>

#include <algorithm>

#include "baselibs/Strings.h"
#include "corectl/rules/Refuse.h"

namespace Lab {

using HostCtl::Dovra::DovraIpAddress;
using HostCtl::Network::Ipv4Address;
using HostCtl::Network::Ipv6Address;

namespace {

/// Returns the address in binary; an IPv4 address mapped to IPv6.
in6_addr Binary(const DovraIpAddress& address) {
  in6_addr binary{};
  const std::string text = (address.isIpv6 ? "" : "::ffff:") + address.GetStringAddress();
  inet_pton(AF_INET6, text.c_str(), &binary);
  return binary;
}

/// Returns the IPv4 address, in host byte order, of one that is mapped to IPv6.
in_addr_t MappedIpv4(const in6_addr& address) {
  return ntohl(address.s6_addr32[3]);
}

}  // namespace

DovraIpAddress ToAddress(const std::string& text) {
  if (Ipv4Address::IsValidAddress(text)) return DovraIpAddress(Ipv4Address(text));
  return DovraIpAddress(Ipv6Address(text));
}

bool IsMulticast(const DovraIpAddress& address) {
  const in6_addr binary = Binary(address);
  return address.isIpv6 ? IN6_IS_ADDR_MULTICAST(&binary) : IN_MULTICAST(MappedIpv4(binary));
}

bool IsUnicast(const DovraIpAddress& address) {
  const in6_addr binary = Binary(address);
  if (!IN6_IS_ADDR_V4MAPPED(&binary)) {
    return !IN6_IS_ADDR_MULTICAST(&binary) && !IN6_IS_ADDR_UNSPECIFIED(&binary);
  }
  const in_addr_t ipv4 = MappedIpv4(binary);
  return ipv4 != INADDR_ANY && ipv4 != INADDR_BROADCAST && !IN_MULTICAST(ipv4);
}

std::string CanonicalAddress(const DovraIpAddress& address) {
  const in6_addr binary = Binary(address);
  const bool isIpv4 = IN6_IS_ADDR_V4MAPPED(&binary);
  char text[INET6_ADDRSTRLEN];
  return isIpv4 ? inet_ntop(AF_INET, &binary.s6_addr32[3], text, sizeof text)
                : inet_ntop(AF_INET6, &binary, text, sizeof text);
}

void RequireRange(const char* what, std::int64_t value, std::int64_t least, std::int64_t most) {
  if (value >= least && value <= most) return;
  Refuse(std::string("The ") + what + " " + std::to_string(value) + " is not between " +
         std::to_string(least) + " and " + std::to_string(most) + ".");
}

void RequirePort(const char* what, std::int64_t port) {
  RequireRange(what, port, 1, 65535);
}

void RequireInterface(const HostRow& host, const std::string& name) {
  if (std::ranges::find(kInterfaces, name) != std::end(kInterfaces)) return;
  Refuse("Host " + host.name + " has no interface \"" + name + "\"; it has " +
         BaseLibs::Join(kInterfaces, ", ") + ".");
}

}  // namespace Lab
