// `dovra network`.
#pragma once

#include "frame/Frame.h"

namespace OrvaneCli::DovraNamespace {

/// `dovra network remove`
class NetworkRemove final : public SuccessCommand<NetworkRemove> {
 public:
  NetworkRemove();

  /// What `remove` and `ip remove` take, and what they do.
  static InputSpecPtr GetInputSpecCommon();
  static void ExecuteCommon(const InputPtr& input, const OutputPtr& output);

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra network restore`
class NetworkRestore final : public SuccessCommand<NetworkRestore> {
 public:
  NetworkRestore();

 private:
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra network clear`
class NetworkClear final : public SuccessCommand<NetworkClear> {
 public:
  NetworkClear();

 private:
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra network list`
class NetworkList final : public ListCommand<NetworkList> {
 public:
  static const Record kRecord;
  NetworkList();

 private:
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra network ip add`, also as `dovra network ipv4 add`
class NetworkIpAdd final : public SuccessCommand<NetworkIpAdd> {
 public:
  NetworkIpAdd();

  /// What `ip add` and `ip set` take.
  static InputSpecPtr GetInputSpecCommon();
  /// What they do: with `reconfigure` the interface must be configured already, and what is not
  /// given stays as it is; without it, the interface must be a new one, and defaults apply.
  static void ExecuteCommon(const InputPtr& input, const OutputPtr& output, bool reconfigure);

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra network ip remove`, also as `dovra network ipv4 remove`
class NetworkIpRemove final : public SuccessCommand<NetworkIpRemove> {
 public:
  NetworkIpRemove();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra network ip set`, also as `dovra network ipv4 set`
class NetworkIpSet final : public SuccessCommand<NetworkIpSet> {
 public:
  NetworkIpSet();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

}  // namespace OrvaneCli::DovraNamespace
