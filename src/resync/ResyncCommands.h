// `dovra resync`.
#pragma once

#include "frame/Frame.h"

namespace OrvaneCli::DovraNamespace {

/// `dovra resync throttle set`
class ResyncThrottleSet final : public SuccessCommand<ResyncThrottleSet> {
 public:
  ResyncThrottleSet();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra resync throttle get`
class ResyncThrottleGet final : public RecordCommand<ResyncThrottleGet> {
 public:
  static const Record kRecord;
  ResyncThrottleGet();

 private:
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra resync bandwidth get`
class ResyncBandwidthGet final : public RecordCommand<ResyncBandwidthGet> {
 public:
  static const Record kRecord;
  ResyncBandwidthGet();

 private:
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

}  // namespace OrvaneCli::DovraNamespace
