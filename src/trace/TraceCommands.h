// `dovra trace`.
#pragma once

#include "frame/Frame.h"

namespace OrvaneCli::DovraNamespace {

/// `dovra trace set`
class DovraTraceSet final : public SuccessCommand<DovraTraceSet> {
 public:
  DovraTraceSet();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra trace get`
class DovraTraceGet final : public RecordCommand<DovraTraceGet> {
 public:
  static const Record kRecord;
  DovraTraceGet();

 private:
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

}  // namespace OrvaneCli::DovraNamespace
