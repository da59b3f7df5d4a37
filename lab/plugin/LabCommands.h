// The `lab` namespace: what a rehearsal needs beside the host's own commands.
#pragma once

#include "frame/Frame.h"

namespace Lab {

using namespace OrvaneCli::DovraNamespace;

/// `lab host add`
class HostAdd final : public SuccessCommand<HostAdd> {
 public:
  HostAdd();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `lab host remove`
class HostRemove final : public SuccessCommand<HostRemove> {
 public:
  HostRemove();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `lab host list`
class HostList final : public ListCommand<HostList> {
 public:
  static const Record kRecord;
  HostList();

 private:
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `lab host reboot`
class HostReboot final : public SuccessCommand<HostReboot> {
 public:
  HostReboot();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `lab fault add`
class FaultAdd final : public SuccessCommand<FaultAdd> {
 public:
  FaultAdd();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `lab fault list`
class FaultList final : public ListCommand<FaultList> {
 public:
  static const Record kRecord;
  FaultList();

 private:
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `lab fault clear`
class FaultClear final : public SuccessCommand<FaultClear> {
 public:
  FaultClear();

 private:
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `lab api set`
class ApiSet final : public SuccessCommand<ApiSet> {
 public:
  ApiSet();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `lab disk add`
class DiskAdd final : public SuccessCommand<DiskAdd> {
 public:
  DiskAdd();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `lab disk generate`
class DiskGenerate final : public SuccessCommand<DiskGenerate> {
 public:
  DiskGenerate();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `lab disk list`
class DiskList final : public ListCommand<DiskList> {
 public:
  static const Record kRecord;
  DiskList();

 private:
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `lab maintenance start`
class MaintenanceStart final : public SuccessCommand<MaintenanceStart> {
 public:
  MaintenanceStart();

 private:
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `lab traced set`
class TracedSet final : public SuccessCommand<TracedSet> {
 public:
  TracedSet();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `lab resync set`
class ResyncSet final : public SuccessCommand<ResyncSet> {
 public:
  ResyncSet();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `lab reset`
class Reset final : public SuccessCommand<Reset> {
 public:
  Reset();

 private:
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

}  // namespace Lab
