// The contract that all commands share: how a command is made and described, how it declares what
// it takes and returns, and how it turns a failure of the control library into a message.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/clitools/AutoCli.h"
#include "platform/hostctl/DovraCtlException.h"

namespace OrvaneCli::DovraNamespace {

using InputPtr = std::shared_ptr<CliTools::CallSpec::Input>;
using OutputPtr = std::shared_ptr<CliTools::CallSpec::Output>;
using InputSpecPtr = std::shared_ptr<CliTools::CallSpec::InputSpec>;
using OutputSpecPtr = std::shared_ptr<CliTools::CallSpec::OutputSpec>;
using StructPtr = std::shared_ptr<CliTools::MetaObj::MetaStruct>;
using ListPtr = std::shared_ptr<CliTools::MetaObj::MetaList>;
using ConstraintPtr = std::shared_ptr<CliTools::CallSpec::ParameterConstraint>;

using CliTools::CallSpec::ParameterType;
using CliTools::MetaObj::MetaBool;
using CliTools::MetaObj::MetaInt;
using CliTools::MetaObj::MetaList;
using CliTools::MetaObj::MetaString;
using CliTools::MetaObj::MetaStruct;
using CliTools::MetaObj::MetaType;
using HostCtl::Lib::Dovra::DovraCtlException;

// What a command takes.

enum class Need { kOptional, kRequired };

/// One parameter. `shortName` is empty where there is none.
struct Parameter {
  const char* name;
  const char* shortName;
  ParameterType type;
  Need need;
  std::string description;
  ConstraintPtr constraint = nullptr;
};

InputSpecPtr MakeInputSpec(std::initializer_list<Parameter> parameters);

/// Allows these texts only; each is a value and its description.
ConstraintPtr OneOf(std::initializer_list<std::pair<const char*, const char*>> values);
/// Allows the numbers from `min` to `max`, both included.
ConstraintPtr Between(std::int64_t min, std::int64_t max);

// What a command returns.

/// One field of a record: `kString`, `kInt`, `kBool`, or `kList` for a list of texts.
struct Field {
  const char* name;
  MetaType type;
};

/// The layout of a record: its structure name and its fields in display order.
struct Record {
  const char* name;
  std::span<const Field> fields;
};

/// A record of this layout, every field empty.
StructPtr MakeStructure(const Record& record);
/// The names of the record's fields in order, as "fields:" wants them.
std::string FieldNames(const Record& record, const char* separator = ",");
OutputSpecPtr MakeOutputSpec(std::shared_ptr<CliTools::MetaObj::MetaObject> rootTemplate);

// The commands.

/// Base of every command: made by `New()`, without parameters unless it says otherwise.
template <class T>
class DovraCommand : public virtual CliTools::AutoCli::Command {
 public:
  static std::shared_ptr<T> New() { return std::make_shared<T>(); }

 protected:
  InputSpecPtr GetInputSpecInternal() override { return MakeInputSpec({}); }

  /// A command that only reads.
  void DescribeFetcher(const char* description) {
    SetDescription(description);
    SetMetaDataField("type", "fetcher");
  }
  /// A command that changes state.
  void DescribeOperation(const char* description) {
    SetDescription(description);
    SetMetaDataField("type", "operation");
  }
};

/// A command whose result is success: a truth value.
template <class T>
class SuccessCommand : public DovraCommand<T> {
 protected:
  OutputSpecPtr GetOutputSpecInternal() override { return MakeOutputSpec(MetaBool::New()); }
};

/// A command whose result is one record, `T::kRecord`.
template <class T>
class RecordCommand : public DovraCommand<T> {
 public:
  static StructPtr GetOutputStructure() { return MakeStructure(T::kRecord); }

 protected:
  OutputSpecPtr GetOutputSpecInternal() override { return MakeOutputSpec(GetOutputStructure()); }
};

/// A command whose result is a list of records, `T::kRecord` each.
template <class T>
class ListCommand : public DovraCommand<T> {
 public:
  static StructPtr GetOutputStructure() { return MakeStructure(T::kRecord); }

 protected:
  static ListPtr MakeList() { return MetaList::New(MetaType::kStruct, GetOutputStructure()); }
  OutputSpecPtr GetOutputSpecInternal() override { return MakeOutputSpec(MakeList()); }
};

// Failures. What a failed command leaves as its result differs from command to command, so each
// says it where it happens.

/// Adds the one message that a failure of the control library becomes.
void Report(const OutputPtr& output, std::string_view prefix, const DovraCtlException& failure);

/// Runs `work`. The result is true; after a failure, which is reported, it is false.
template <class Work>
void SucceedOrFalse(const OutputPtr& output, std::string_view prefix, Work&& work) {
  try {
    std::forward<Work>(work)();
    output->SetRootObject(MetaBool::New(true));
  } catch (const DovraCtlException& failure) {
    Report(output, prefix, failure);
    output->SetRootObject(MetaBool::New(false));
  }
}

/// Runs `work`. The result is true; after a failure, which is reported, there is none.
template <class Work>
void SucceedOrNothing(const OutputPtr& output, std::string_view prefix, Work&& work) {
  try {
    std::forward<Work>(work)();
    output->SetRootObject(MetaBool::New(true));
  } catch (const DovraCtlException& failure) {
    Report(output, prefix, failure);
  }
}

}  // namespace OrvaneCli::DovraNamespace
