// Rules of interfaces, addresses and ports.
#pragma once

#include <cstdint>
#include <string>

#include "platform/hostctl/DovraRecords.h"
#include "store/Store.h"

namespace Lab {

/// Parses an address of either family. Throws `DovraCtlException` when it is none.
HostCtl::Dovra::DovraIpAddress ToAddress(const std::string& text);
bool IsMulticast(const HostCtl::Dovra::DovraIpAddress& address);
/// Whether the address is one of a single host.
bool IsUnicast(const HostCtl::Dovra::DovraIpAddress& address);
/// Returns the one form for all spellings of the address: an IPv4 address mapped to IPv6 as IPv4.
std::string CanonicalAddress(const HostCtl::Dovra::DovraIpAddress& address);

/// Refuses a number outside its range. `what` names it in the message.
void RequireRange(const char* what, std::int64_t value, std::int64_t least, std::int64_t most);
void RequirePort(const char* what, std::int64_t port);
/// The interfaces of every host.
inline constexpr const char* kInterfaces[] = {"knic0", "knic1"};
/// Refuses an interface that the host does not have.
void RequireInterface(const HostRow& host, const std::string& name);

}  // namespace Lab
