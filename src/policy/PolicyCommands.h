// `dovra policy`.
#pragma once

#include "frame/Frame.h"

namespace OrvaneCli::DovraNamespace {

/// `dovra policy getdefault`
class PolicyGetDefault final : public ListCommand<PolicyGetDefault> {
 public:
  static const Record kRecord;
  PolicyGetDefault();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra policy setdefault`
class PolicySetDefault final : public SuccessCommand<PolicySetDefault> {
 public:
  PolicySetDefault();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra policy cleardefault`
class PolicyClearDefault final : public SuccessCommand<PolicyClearDefault> {
 public:
  PolicyClearDefault();

 private:
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

}  // namespace OrvaneCli::DovraNamespace
