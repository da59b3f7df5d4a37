// `dovra cluster`, `dovra faultdomain` and `dovra maintenancemode`.
#pragma once

#include "frame/Frame.h"

namespace OrvaneCli::DovraNamespace {

/// `dovra cluster get`
class ClusterGet final : public RecordCommand<ClusterGet> {
 public:
  static const Record kRecord;
  ClusterGet();

 private:
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra cluster join`
class ClusterJoin final : public SuccessCommand<ClusterJoin> {
 public:
  ClusterJoin();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra cluster leave`
class ClusterLeave final : public SuccessCommand<ClusterLeave> {
 public:
  ClusterLeave();

 private:
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra cluster new`
class ClusterNew final : public SuccessCommand<ClusterNew> {
 public:
  ClusterNew();

 private:
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra cluster restore`
class ClusterRestore final : public SuccessCommand<ClusterRestore> {
 public:
  ClusterRestore();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

}  // namespace OrvaneCli::DovraNamespace
