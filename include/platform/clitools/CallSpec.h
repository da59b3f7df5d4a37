// What a call of a command takes and what it returns.
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
  kBool = 2,        ///< takes a value
  kFlag = 3,        ///< present or absent, no value
  kStringList = 4,  ///< the option may be given several times
};

enum class ParameterConstraintType { kIntRange = 1, kStringEnum = 3 };

/// The values that a parameter may take. The framework refuses others before the command runs.
class ParameterConstraint {
 public:
  static std::shared_ptr<ParameterConstraint> New(ParameterConstraintType type);
  explicit ParameterConstraint(ParameterConstraintType type) : type_(type) {}

  /// Allows one more text (`kStringEnum`).
  void AddStringEnum(std::string value, std::string description);
  /// Allows `min` to `max`, both included (`kIntRange`).
  void SetIntRange(std::int64_t min, std::int64_t max);

  ParameterConstraintType GetType() const { return type_; }
  /// Value and description of each allowed text, in the order in which they were added.
  const std::vector<std::pair<std::string, std::string>>& GetStringEnums() const { return enums_; }
  std::int64_t GetIntMin() const { return min_; }
  std::int64_t GetIntMax() const { return max_; }

 private:
  ParameterConstraintType type_;
  std::vector<std::pair<std::string, std::string>> enums_;
  std::int64_t min_ = 0;
  std::int64_t max_ = 0;
};

/// One parameter of a command: the option `--name`.
class ParameterSpec {
 public:
  static std::shared_ptr<ParameterSpec> New(std::string name, ParameterType type);
  ParameterSpec(std::string name, ParameterType type);

  /// A single letter: the option `-x`.
  void SetShortName(std::string letter);
  void SetRequired(bool required);
  /// "%ENUM%" in the text stands for what the constraint allows.
  void SetDescription(std::string text);
  void SetConstraint(std::shared_ptr<ParameterConstraint> constraint);

  const std::string& GetName() const { return name_; }
  ParameterType GetType() const { return type_; }
  /// Empty if there is none.
  const std::string& GetShortName() const { return shortName_; }
  bool IsRequired() const { return required_; }
  const std::string& GetDescription() const { return description_; }
  /// Null if every value of the type is allowed.
  const std::shared_ptr<ParameterConstraint>& GetConstraint() const { return constraint_; }

 private:
  std::string name_;
  ParameterType type_;
  std::string shortName_;
  bool required_ = false;
  std::string description_;
  std::shared_ptr<ParameterConstraint> constraint_;
};

/// A command's parameters, in the order in which help shows them.
class InputSpec {
 public:
  static std::shared_ptr<InputSpec> New();
  void AddParameter(std::shared_ptr<ParameterSpec> parameter);
  const std::vector<std::shared_ptr<ParameterSpec>>& GetParameters() const { return parameters_; }

 private:
  std::vector<std::shared_ptr<ParameterSpec>> parameters_;
};

/// What a command's result looks like: an empty value of its shape.
class OutputSpec {
 public:
  static std::shared_ptr<OutputSpec> New();
  void SetRootObject(std::shared_ptr<MetaObj::MetaObject> rootTemplate);
  const std::shared_ptr<MetaObj::MetaObject>& GetRootObject() const { return root_; }

 private:
  std::shared_ptr<MetaObj::MetaObject> root_;
};

/// The parameters given in one call. What is read must have been given, and be of that type; only a
/// text or a flag may be absent.
class Input {
 public:
  using Value = std::variant<std::string, std::int64_t, bool, std::vector<std::string>>;

  static std::shared_ptr<Input> New();

  bool HasParameter(const std::string& name) const;
  /// Empty if it was not given.
  std::string GetParameter(const std::string& name) const;
  std::int64_t GetParameterInt(const std::string& name) const;
  bool GetParameterBool(const std::string& name) const;
  /// False if it was not given.
  bool IsFlagSet(const std::string& name) const;
  /// Fills `values` with every value given, in command-line order.
  void GetParameterList(const std::string& name, std::vector<std::string>& values) const;

  /// Gives the parameter its value; a flag is given as true.
  void SetParameter(const std::string& name, Value value);

 private:
  std::map<std::string, Value> values_;
};

/// What one call of a command leaves: at most one result and any number of error messages.
class Output {
 public:
  static std::shared_ptr<Output> New();

  /// The call's result; the last one set wins.
  void SetRootObject(std::shared_ptr<MetaObj::MetaObject> root);
  /// Any message makes the call a failed one, whatever its result says.
  void AddErrorMessage(std::string text);

  /// Null if the command set none.
  const std::shared_ptr<MetaObj::MetaObject>& GetRootObject() const { return root_; }
  const std::vector<std::string>& GetErrorMessages() const { return errors_; }

 private:
  std::shared_ptr<MetaObj::MetaObject> root_;
  std::vector<std::string> errors_;
};

/// Something that can be called, seen from outside: what it takes and what it returns.
class CallTargetSpec {
 public:
  virtual ~CallTargetSpec();
  std::shared_ptr<InputSpec> GetInputSpec() { return GetInputSpecInternal(); }
  std::shared_ptr<OutputSpec> GetOutputSpec() { return GetOutputSpecInternal(); }

 protected:
  virtual std::shared_ptr<InputSpec> GetInputSpecInternal() = 0;
  virtual std::shared_ptr<OutputSpec> GetOutputSpecInternal() = 0;
};

/// Something that can be called.
class CallTarget : public CallTargetSpec {
 public:
  ~CallTarget() override;
  /// Runs the call. What fails stands in `output`; what is thrown is a fault of the host.
  void Execute(const std::shared_ptr<Input>& input, const std::shared_ptr<Output>& output) {
    ExecuteInternal(input, output);
  }

 protected:
  virtual void ExecuteInternal(const std::shared_ptr<Input>& input,
                               const std::shared_ptr<Output>& output) = 0;
};

}  // namespace CliTools::CallSpec

#pragma GCC visibility pop
