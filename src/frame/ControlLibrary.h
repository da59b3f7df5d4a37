#pragma once

#include <memory>

#include "platform/hostctl/DovraPluginFactory.h"

namespace OrvaneCli::DovraNamespace {

/// The control library for the length of a call: the plug-in object and its information object,
/// owned together and released on every path.
class ControlLibrary {
 public:
  /// Throws `DovraCtlException` when the service cannot be reached.
  ControlLibrary();

  /// Throws `DovraCtlException` when the service handed out no information object.
  HostCtl::Dovra::DovraInfo* operator->() const;

  /// The newer operations; null when the host's control library is too old to have them.
  HostCtl::Dovra::DovraInfo2* GetInfo2() const;

 private:
  std::unique_ptr<HostCtl::DovraPlugin> plugin_;
  std::unique_ptr<HostCtl::Dovra::DovraInfo> info_;  // after plugin_: it is released first
};

/// What commands say that need `GetInfo2` and find none.
inline constexpr const char* kNoInfo2Message = "Could not get DovraInfo2. Plugin version mismatch?";

}  // namespace OrvaneCli::DovraNamespace
