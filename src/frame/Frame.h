// What all commands share: how a command is made and described, how it declares its parameters and
// its result, and how it reports a failure of the control library. The sources of commands rely on
// the includes below.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "frame/Constants.h"
#include "frame/ControlLibrary.h"
#include "frame/Tree.h"
#include "platform/clitools/AutoCli.h"
#include "platform/corectl/DovraUtil.h"

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
using CoreCtl::Dovra::DovraUtil;
using HostCtl::Lib::Dovra::DovraCtlException;

// Parameters.

enum class Need { kOptional, kRequired };

struct Parameter {
  const char* name;
  const char* shortName;  ///< null when there is none
  ParameterType type;
  Need need;
  const char* description;
  ConstraintPtr constraint = nullptr;
};

InputSpecPtr MakeInputSpec(std::initializer_list<Parameter> parameters);

/// Returns a constraint that allows only these strings. The second of each pair is its description.
ConstraintPtr OneOf(std::initializer_list<std::pair<const char*, const char*>> values);
/// Returns a constraint that allows the numbers from `min` to `max`, both included.
ConstraintPtr Between(std::int64_t min, std::int64_t max);

/// Returns the parameter's string, number or Boolean; nothing when it is absent.
template <class Value>
std::optional<Value> Given(const InputPtr& input, const char* parameter) {
  if (!input->HasParameter(parameter)) return std::nullopt;
  if constexpr (std::is_same_v<Value, bool>) {
    return input->GetParameterBool(parameter);
  } else if constexpr (std::is_same_v<Value, std::int64_t>) {
    return input->GetParameterInt(parameter);
  } else {
    return input->GetParameter(parameter);
  }
}

// Results.

/// A field of a record. Its type is `kString`, `kInt`, `kBool`, or `kList` for a list of strings.
struct Field {
  const char* name;
  MetaType type;
  const char* unit = nullptr;  ///< shown after the value; null when there is none
};

/// The layout of a record that a command returns, and how it is shown by default.
struct Record {
  const char* name;  ///< the structure's name
  std::initializer_list<Field> fields;
  const char* formatter = "simple";
  const char* caption = nullptr;
  /// Separates the names in the formatter's parameter "fields:". When null, that parameter is not
  /// set, and the formatter shows every field.
  const char* separator = nullptr;
};

/// Returns a record of this layout with empty fields.
StructPtr MakeStructure(const Record& record);
/// Sets the command's default formatter and the formatter's parameters.
void ShowAs(const Record& record, CliTools::AutoCli::Command& command);
OutputSpecPtr MakeOutputSpec(std::shared_ptr<CliTools::MetaObj::MetaObject> rootTemplate);

// Commands.

/// The type of a command's result; success is a Boolean.
enum class Returns { kSuccess, kRecord, kList };

/// Base of every command. The records that a command returns have the layout `T::kRecord`. Part
/// of the ABI: commands inherit from `Command` virtually, and their virtual functions are in the
/// order of destructor, input, output and execution.
template <class T, Returns kReturns>
class DovraCommand : public virtual CliTools::AutoCli::Command {
 public:
  ~DovraCommand() override = default;

  static std::shared_ptr<T> New() { return std::make_shared<T>(); }
  static StructPtr GetOutputStructure() { return MakeStructure(T::kRecord); }

 protected:
  DovraCommand() {
    if constexpr (kReturns != Returns::kSuccess) ShowAs(T::kRecord, *this);
  }

  InputSpecPtr GetInputSpecInternal() override { return MakeInputSpec({}); }
  OutputSpecPtr GetOutputSpecInternal() override {
    if constexpr (kReturns == Returns::kSuccess) {
      return MakeOutputSpec(MetaBool::New());
    } else if constexpr (kReturns == Returns::kRecord) {
      return MakeOutputSpec(GetOutputStructure());
    } else {
      return MakeOutputSpec(MakeList());
    }
  }
  static ListPtr MakeList() { return MetaList::New(MetaType::kStruct, GetOutputStructure()); }

  /// Declares a command that only reads.
  void DescribeFetcher(const char* description) {
    SetDescription(description);
    SetMetaDataField("type", "fetcher");
  }
  /// Declares an operation: a command that changes state, or the listing of unicast agents.
  void DescribeOperation(const char* description) {
    SetDescription(description);
    SetMetaDataField("type", "operation");
  }
};

template <class T>
using SuccessCommand = DovraCommand<T, Returns::kSuccess>;
template <class T>
using RecordCommand = DovraCommand<T, Returns::kRecord>;
template <class T>
using ListCommand = DovraCommand<T, Returns::kList>;

// Failures. The result of a failed command differs from command to command, so each command sets it
// where it fails.

/// Adds the error message for a failure of the control library: `prefix` and the failure's message.
void Report(const OutputPtr& output, const DovraCtlException& failure,
            std::string_view prefix = "");

}  // namespace OrvaneCli::DovraNamespace
