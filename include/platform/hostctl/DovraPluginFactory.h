#pragma once

#include <memory>

#include "platform/hostctl/DovraInfo.h"

namespace HostCtl {

/// The way to the storage cluster's service.
class [[gnu::visibility("default")]] DovraPlugin {
 public:
  /// A new information object; it must not outlive the plug-in object.
  virtual std::unique_ptr<Dovra::DovraInfo> GetDovraInfo() = 0;
  virtual ~DovraPlugin();
};

class [[gnu::visibility("default")]] DovraPluginFactory {
 public:
  /// Throws `DovraCtlException` when the service cannot be reached.
  static std::unique_ptr<DovraPlugin> GetDovraPlugin();
};

}  // namespace HostCtl
