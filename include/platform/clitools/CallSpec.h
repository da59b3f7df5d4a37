// The parameters and the result of a call of a command.
//
// The framework calls commands on one thread, one call at a time; nothing here is synchronised. In
// every class the order of virtual functions is part of the ABI: do not reorder them.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "platform/clitools/MetaObj.h"

#pragma GCC visibility push(default)

namespace CliTools::CallSpec {

enum class ParameterType {
  kString = 0,
  kInt = 1,         ///< signed 64-bit
  kBool = 2,        ///< takes a value, true or false
  kFlag = 3,        ///< present or absent, no value
  kStringList = 4,  ///< the option may be given several times
};

enum class ParameterConstraintType { kIntRange = 1, kStringEnum = 3 };

/// The values that a parameter may take. The framework rejects others before the command runs. Only
/// strings have a `kStringEnum`, and only numbers a `kIntRange`.
class ParameterConstraint {
 public:
  static std::shared_ptr<ParameterConstraint> New(ParameterConstraintType type);
  explicit ParameterConstraint(ParameterConstraintType type) : type_(type) {}

  /// Allows one more string (`kStringEnum`). The description may be empty.
  void AddStringEnum(std::string value, std::string description);
  /// Allows `min` to `max`, both included (`kIntRange`).
  void SetIntRange(std::int64_t min, std::int64_t max);

  // Called only by the framework.

  ParameterConstraintType GetType() const { return type_; }
  /// Returns value and description of each allowed string, in the order in which they were added.
  const std::vector<std::pair<std::string, std::string>>& GetStringEnums() const { return enums_; }
  std::int64_t GetIntMin() const { return min_; }
  std::int64_t GetIntMax() const { return max_; }

 private:
  ParameterConstraintType type_;
  std::vector<std::pair<std::string, std::string>> enums_;
  std::int64_t min_ = 0;
  std::int64_t max_ = 0;
};

/// One parameter of a command: the option `--name`. Optional, without a short name and with every
/// value of its type allowed, unless set otherwise.
class ParameterSpec {
 public:
  static std::shared_ptr<ParameterSpec> New(std::string name, ParameterType type);
  ParameterSpec(std::string name, ParameterType type);

  /// Adds the option `-x`, where x is `letter`, a single character.
  void SetShortName(std::string letter);
  /// The framework rejects a call that lacks a required parameter.
  void SetRequired(bool required);
  /// Sets the help text. The framework replaces "%ENUM%" in it by what the constraint allows:
  /// strings, for example as "a, b, c", or the bounds of a range, for example as "0 to 512".
  void SetDescription(std::string text);
  void SetConstraint(std::shared_ptr<ParameterConstraint> constraint);

  // Called only by the framework.

  const std::string& GetName() const { return name_; }
  ParameterType GetType() const { return type_; }
  /// Empty when there is none.
  const std::string& GetShortName() const { return shortName_; }
  bool IsRequired() const { return required_; }
  const std::string& GetDescription() const { return description_; }
  /// Null when every value of the type is allowed.
  const std::shared_ptr<ParameterConstraint>& GetConstraint() const { return constraint_; }

 private:
  std::string name_;
  ParameterType type_;
  std::string shortName_;
  bool required_ = false;
  std::string description_;
  std::shared_ptr<ParameterConstraint> constraint_;
};

/// A command's parameters, in the order in which help shows them. Their names differ, and so do
/// their short names. No command has `--help` or `-h`. A host's other options belong before the
/// command, because a command may have an option of the same name.
class InputSpec {
 public:
  static std::shared_ptr<InputSpec> New();
  void AddParameter(std::shared_ptr<ParameterSpec> parameter);

  // Called only by the framework.

  const std::vector<std::shared_ptr<ParameterSpec>>& GetParameters() const { return parameters_; }

 private:
  std::vector<std::shared_ptr<ParameterSpec>> parameters_;
};

/// A template of a command's result: an empty value of the result's type, never null. A record has
/// every field that the command's records have, each with an empty value.
class OutputSpec {
 public:
  static std::shared_ptr<OutputSpec> New();
  void SetRootObject(std::shared_ptr<MetaObj::MetaObject> rootTemplate);

  // Called only by the framework.

  const std::shared_ptr<MetaObj::MetaObject>& GetRootObject() const { return root_; }

 private:
  std::shared_ptr<MetaObj::MetaObject> root_;
};

/// The parameters given in one call. The framework has checked them against the command's
/// `InputSpec`.
///
/// Only a string or a flag may be read when it is absent. Reading an absent number, Boolean or
/// list, or a parameter of another type, is a fault of the command; it throws `std::logic_error`.
class Input {
 public:
  using Value = std::variant<std::string, std::int64_t, bool, std::vector<std::string>>;

  static std::shared_ptr<Input> New();

  /// Returns whether the parameter was given; an empty string is a value, too.
  bool HasParameter(const std::string& name) const;
  /// Returns a string parameter; empty when it is absent.
  std::string GetParameter(const std::string& name) const;
  std::int64_t GetParameterInt(const std::string& name) const;
  bool GetParameterBool(const std::string& name) const;
  /// Returns false when the flag is absent.
  bool IsFlagSet(const std::string& name) const;
  /// Replaces `values` by the values given, in command-line order.
  void GetParameterList(const std::string& name, std::vector<std::string>& values) const;

  // Called only by the framework.

  /// Gives the parameter its value; a flag's is true. The last value set counts.
  void SetParameter(const std::string& name, Value value);

 private:
  std::map<std::string, Value> values_;
};

/// The outcome of one call of a command: at most one result and any number of error messages. There
/// may be both, and the framework shows both, for example the result on standard output and the
/// messages on standard error.
class Output {
 public:
  static std::shared_ptr<Output> New();

  /// Sets the call's result, which is not null. The last one set counts.
  void SetRootObject(std::shared_ptr<MetaObj::MetaObject> root);
  /// Appends a message. A call with messages has failed, whatever its result is.
  void AddErrorMessage(std::string text);

  // Called only by the framework.

  /// Null when the command set none.
  const std::shared_ptr<MetaObj::MetaObject>& GetRootObject() const { return root_; }
  const std::vector<std::string>& GetErrorMessages() const { return errors_; }

 private:
  std::shared_ptr<MetaObj::MetaObject> root_;
  std::vector<std::string> errors_;
};

/// Describes the parameters and the result of a call target. Neither description is null.
class CallTargetSpec {
 public:
  virtual ~CallTargetSpec();
  std::shared_ptr<InputSpec> GetInputSpec() { return GetInputSpecInternal(); }
  std::shared_ptr<OutputSpec> GetOutputSpec() { return GetOutputSpecInternal(); }

 protected:
  virtual std::shared_ptr<InputSpec> GetInputSpecInternal() = 0;
  virtual std::shared_ptr<OutputSpec> GetOutputSpecInternal() = 0;
};

/// The base of commands: an object that the framework calls.
class CallTarget : public CallTargetSpec {
 public:
  ~CallTarget() override;
  /// Runs the call; neither argument is null. Failures of the control library become messages in
  /// `output`. Any exception that leaves it is a fault of the command or of the host.
  void Execute(const std::shared_ptr<Input>& input, const std::shared_ptr<Output>& output) {
    ExecuteInternal(input, output);
  }

 protected:
  virtual void ExecuteInternal(const std::shared_ptr<Input>& input,
                               const std::shared_ptr<Output>& output) = 0;
};

}  // namespace CliTools::CallSpec

#pragma GCC visibility pop
