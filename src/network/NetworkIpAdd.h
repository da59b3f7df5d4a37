#pragma once

#include "frame/Frame.h"

namespace OrvaneCli::DovraNamespace {

/// `ip set` has its parameters and its execution from here.
class NetworkIpAdd final : public SuccessCommand<NetworkIpAdd> {
 public:
  NetworkIpAdd();

  static InputSpecPtr GetInputSpecCommon();
  /// With `reconfigure` the interface must be configured already, and what is not given stays as it
  /// is; without it, the interface must be a new one, and defaults apply.
  static void ExecuteCommon(const InputPtr& input, const OutputPtr& output, bool reconfigure);

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

}  // namespace OrvaneCli::DovraNamespace
