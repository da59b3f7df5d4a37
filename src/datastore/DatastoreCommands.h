// `dovra datastore`.
#pragma once

#include "frame/Frame.h"

namespace OrvaneCli::DovraNamespace {

/// `dovra datastore name get`
class DatastoreNameGet final : public RecordCommand<DatastoreNameGet> {
 public:
  static const Record kRecord;
  DatastoreNameGet();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra datastore name set`
class DatastoreNameSet final : public SuccessCommand<DatastoreNameSet> {
 public:
  DatastoreNameSet();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra datastore add`
class DatastoreAdd final : public SuccessCommand<DatastoreAdd> {
 public:
  DatastoreAdd();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra datastore remove`
class DatastoreRemove final : public SuccessCommand<DatastoreRemove> {
 public:
  DatastoreRemove();

 private:
  InputSpecPtr GetInputSpecInternal() override;
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra datastore list`
class DatastoreList final : public ListCommand<DatastoreList> {
 public:
  static const Record kRecord;
  DatastoreList();

 private:
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

/// `dovra datastore clear`
class DatastoreClear final : public SuccessCommand<DatastoreClear> {
 public:
  DatastoreClear();

 private:
  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override;
};

}  // namespace OrvaneCli::DovraNamespace
