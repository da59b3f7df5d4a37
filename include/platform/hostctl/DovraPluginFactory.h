#pragma once

#include <memory>

#include "platform/hostctl/DovraInfo.h"

#pragma GCC visibility push(default)

namespace HostCtl {

/// The way to the storage cluster's service.
class DovraPlugin {
 public:
  /// A new information object, or none if the service has none to give; it must not outlive the
  /// plug-in object.
  virtual std::unique_ptr<Dovra::DovraInfo> GetDovraInfo() = 0;
  virtual ~DovraPlugin();
};

class DovraPluginFactory {
 public:
  /// The caller owns it. Throws `DovraCtlException` when the service cannot be reached.
  static std::unique_ptr<DovraPlugin> GetDovraPlugin();
};

}  // namespace HostCtl

#pragma GCC visibility pop
