#include "corectl/Addresses.h"

#include <algorithm>
#include <cctype>

#include "baselibs/Text.h"
#include "corectl/LabHost.h"

namespace Lab {

using HostCtl::Dovra::DovraIpAddress;
using HostCtl::Network::Ipv4Address;
using HostCtl::Network::Ipv6Address;

DovraIpAddress ToAddress(const std::string& text) {
  if (Ipv4Address::IsValidAddress(text)) return DovraIpAddress(Ipv4Address(text));
  return DovraIpAddress(Ipv6Address(text));
}

bool IsMulticast(const DovraIpAddress& address) {
  const std::string text = address.GetStringAddress();
  if (!address.isIpv6) {
    const int first = std::stoi(text);
    return first >= 224 && first <= 239;
  }
  return text.size() > 4 && std::tolower(text[0]) == 'f' && std::tolower(text[1]) == 'f' &&
         text.find(':') == 4;
}

bool IsOfOneHost(const DovraIpAddress& address) {
  return !IsMulticast(address) && !(address == ToAddress(address.isIpv6 ? "::" : "0.0.0.0"));
}

void RequireRange(const char* what, std::int64_t value, std::int64_t least, std::int64_t most) {
  if (value >= least && value <= most) return;
  Refuse(std::string("The ") + what + " " + std::to_string(value) + " is not between " +
         std::to_string(least) + " and " + std::to_string(most) + ".");
}

void RequirePort(const char* what, std::int64_t port) {
  RequireRange(what, port, 1, 65535);
}

void RequireInterface(Store& store, const HostRow& host, const std::string& name) {
  const auto interfaces = store.ListInterfaces(host.id);
  if (std::ranges::find(interfaces, name, &InterfaceRow::name) != interfaces.end()) return;
  Refuse("Host " + host.name + " has no interface \"" + name + "\"; it has " +
         (interfaces.empty() ? "none" : BaseLibs::Join(interfaces, ", ", &InterfaceRow::name)) +
         ".");
}

}  // namespace Lab
