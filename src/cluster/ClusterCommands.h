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

/// `dovra cluster unicastagent add`
class ClusterUnicastAgentAdd final : public SuccessCommand<ClusterUnicastAgentAdd> {
 public:
  ClusterUnicastAgentAdd();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra cluster unicastagent remove`
class ClusterUnicastAgentRemove final : public SuccessCommand<ClusterUnicastAgentRemove> {
 public:
  ClusterUnicastAgentRemove();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra cluster unicastagent list`
class ClusterUnicastAgentList final : public ListCommand<ClusterUnicastAgentList> {
 public:
  static const Record kRecord;
  ClusterUnicastAgentList();

 private:
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra cluster unicastagent clear`
class ClusterUnicastAgentClear final : public SuccessCommand<ClusterUnicastAgentClear> {
 public:
  ClusterUnicastAgentClear();

 private:
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra cluster preferredfaultdomain get`
class ClusterPreferredFaultDomainGet final : public RecordCommand<ClusterPreferredFaultDomainGet> {
 public:
  static const Record kRecord;
  ClusterPreferredFaultDomainGet();

 private:
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra cluster preferredfaultdomain set`
class ClusterPreferredFaultDomainSet final : public SuccessCommand<ClusterPreferredFaultDomainSet> {
 public:
  ClusterPreferredFaultDomainSet();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra maintenancemode cancel`
class MaintenanceModeCancel final : public SuccessCommand<MaintenanceModeCancel> {
 public:
  MaintenanceModeCancel();

 private:
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra faultdomain set`
class FaultDomainSet final : public SuccessCommand<FaultDomainSet> {
 public:
  FaultDomainSet();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra faultdomain get`
class FaultDomainGet final : public RecordCommand<FaultDomainGet> {
 public:
  static const Record kRecord;
  FaultDomainGet();

 private:
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra faultdomain reset`
class FaultDomainReset final : public SuccessCommand<FaultDomainReset> {
 public:
  FaultDomainReset();

 private:
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

}  // namespace OrvaneCli::DovraNamespace
