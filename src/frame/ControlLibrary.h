#pragma once

#include <memory>

#include "platform/hostctl/DovraPluginFactory.h"

namespace OrvaneCli::DovraNamespace {

/// Owns a connection to the control library and its information object.
class ControlLibrary {
 public:
  /// Throws `DovraCtlException` when the service cannot be reached.
  ControlLibrary();

  /// Throws `DovraCtlException` when the service has no information object.
  HostCtl::Dovra::DovraInfo* operator->() const;

  /// The newer operations; null when the host's control library is too old to have them.
  HostCtl::Dovra::DovraInfo2* GetInfo2() const;

 private:
  std::unique_ptr<HostCtl::DovraPlugin> plugin_;
  std::unique_ptr<HostCtl::Dovra::DovraInfo> info_;  // declared last, so destroyed before plugin_
};

/// Reported when `GetInfo2` returns null.
inline constexpr const char* kNoInfo2Message = "Could not get DovraInfo2. Plugin version mismatch?";

}  // namespace OrvaneCli::DovraNamespace
