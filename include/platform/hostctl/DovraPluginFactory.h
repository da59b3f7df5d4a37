#pragma once

#include <memory>

#include "platform/hostctl/DovraInfo.h"

#pragma GCC visibility push(default)

namespace HostCtl {

/// The connection to the storage cluster's service. The order of its virtual functions is part of
/// the ABI: `GetDovraInfo` is the first, so the destructor follows it.
class DovraPlugin {
 public:
  /// Returns a new information object; null when the service has none. The caller owns it and
  /// destroys it before this object. May throw `DovraCtlException`.
  virtual std::unique_ptr<Dovra::DovraInfo> GetDovraInfo() = 0;
  virtual ~DovraPlugin();
};

class DovraPluginFactory {
 public:
  /// Returns a new connection, which the caller owns; a call of a command makes at most one. Null
  /// means the same as a connection whose `GetDovraInfo` returns null. Throws `DovraCtlException`
  /// when the service cannot be reached.
  static std::unique_ptr<DovraPlugin> GetDovraPlugin();
};

}  // namespace HostCtl

#pragma GCC visibility pop
