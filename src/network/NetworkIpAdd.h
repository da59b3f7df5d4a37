#pragma once

#include "frame/Frame.h"

namespace OrvaneCli::DovraNamespace {

/// `ip set` uses the static functions.
class NetworkIpAdd final : public SuccessCommand<NetworkIpAdd> {
 public:
  NetworkIpAdd();

  static InputSpecPtr GetInputSpecCommon();
  /// With `reconfigure`, the interface must be configured already, and settings that are not given
  /// keep their values. Without it, the interface must be new, and such settings get defaults.
  static void ExecuteCommon(const InputPtr& input, const OutputPtr& output, bool reconfigure);

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

}  // namespace OrvaneCli::DovraNamespace
