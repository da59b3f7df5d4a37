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

/// The IPv4 address that an IPv6 address stands for, if it does; otherwise the address.
DovraIpAddress Unmapped(const DovraIpAddress& address) {
  in6_addr v6{};
  if (!address.isIpv6 || inet_pton(AF_INET6, address.GetStringAddress().c_str(), &v6) != 1 ||
      !IN6_IS_ADDR_V4MAPPED(&v6)) {
    return address;
  }
  char text[INET_ADDRSTRLEN];
  return DovraIpAddress(Ipv4Address(inet_ntop(AF_INET, &v6.s6_addr[12], text, sizeof text)));
}

}  // namespace

DovraIpAddress ToAddress(const std::string& text) {
  if (Ipv4Address::IsValidAddress(text)) return DovraIpAddress(Ipv4Address(text));
  return DovraIpAddress(Ipv6Address(text));
}

bool IsMulticast(const DovraIpAddress& address) {
  const std::string text = address.GetStringAddress();
  in6_addr v6{};
  in_addr v4{};
  if (address.isIpv6)
    return inet_pton(AF_INET6, text.c_str(), &v6) == 1 && IN6_IS_ADDR_MULTICAST(&v6);
  return inet_pton(AF_INET, text.c_str(), &v4) == 1 && IN_MULTICAST(ntohl(v4.s_addr));
}

bool IsOfOneHost(const DovraIpAddress& address) {
  const DovraIpAddress plain = Unmapped(address);
  const std::string text = plain.GetStringAddress();
  return !IsMulticast(plain) && text != "0.0.0.0" && text != "255.255.255.255" &&
         !(plain == ToAddress("::"));
}

bool IsSame(const DovraIpAddress& one, const DovraIpAddress& other) {
  return Unmapped(one) == Unmapped(other);
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
