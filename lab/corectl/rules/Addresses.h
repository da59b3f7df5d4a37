// Rules of addresses and ports.
#pragma once

#include <cstdint>
#include <string>

#include "platform/hostctl/DovraRecords.h"
#include "store/Store.h"

namespace Lab {

/// Throws `DovraCtlException` when the text is an address of neither family.
HostCtl::Dovra::DovraIpAddress ToAddress(const std::string& text);
bool IsMulticast(const HostCtl::Dovra::DovraIpAddress& address);
/// Whether a host can have the address for itself.
bool IsOfOneHost(const HostCtl::Dovra::DovraIpAddress& address);
/// Whether both lead to the same host, be it that one of them is spelt as the other family's.
bool IsSame(const HostCtl::Dovra::DovraIpAddress& one, const HostCtl::Dovra::DovraIpAddress& other);

/// Refuses a number outside its range; `what` says in the message what it is.
void RequireRange(const char* what, std::int64_t value, std::int64_t least, std::int64_t most);
void RequirePort(const char* what, std::int64_t port);
/// The interfaces of every host.
inline constexpr const char* kInterfaces[] = {"knic0", "knic1"};
/// Refuses an interface that the host does not have.
void RequireInterface(const HostRow& host, const std::string& name);

}  // namespace Lab
