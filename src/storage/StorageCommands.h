// `dovra storage`.
#pragma once

#include <memory>

#include "frame/Frame.h"

namespace OrvaneCli::DovraNamespace {

/// `dovra storage add`
class StorageAdd final : public SuccessCommand<StorageAdd> {
 public:
  StorageAdd();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra storage remove`
class StorageRemove final : public SuccessCommand<StorageRemove> {
 public:
  StorageRemove();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra storage list`
class StorageList final : public ListCommand<StorageList> {
 public:
  static const Record kRecord;
  StorageList();

  /// The label under which administrators know an on-disk format version.
  static std::shared_ptr<MetaString> MarshalVersion(int version);

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra storage automode get`
class StorageAutoModeGet final : public RecordCommand<StorageAutoModeGet> {
 public:
  static const Record kRecord;
  StorageAutoModeGet();

 private:
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra storage automode set`
class StorageAutoModeSet final : public SuccessCommand<StorageAutoModeSet> {
 public:
  StorageAutoModeSet();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra storage diskgroup mount`
class StorageDiskgroupMount final : public SuccessCommand<StorageDiskgroupMount> {
 public:
  StorageDiskgroupMount();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra storage diskgroup unmount`
class StorageDiskgroupUmount final : public SuccessCommand<StorageDiskgroupUmount> {
 public:
  StorageDiskgroupUmount();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra storage tag add`
class StorageTagAdd final : public SuccessCommand<StorageTagAdd> {
 public:
  StorageTagAdd();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra storage tag remove`
class StorageTagRemove final : public SuccessCommand<StorageTagRemove> {
 public:
  StorageTagRemove();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

}  // namespace OrvaneCli::DovraNamespace
