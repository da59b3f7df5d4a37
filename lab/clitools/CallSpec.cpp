#include "platform/clitools/CallSpec.h"

#include <stdexcept>

namespace CliTools::CallSpec {

std::shared_ptr<ParameterConstraint> ParameterConstraint::New(ParameterConstraintType type) {
  return std::make_shared<ParameterConstraint>(type);
}
void ParameterConstraint::AddStringEnum(std::string value, std::string description) {
  enums_.emplace_back(std::move(value), std::move(description));
}
void ParameterConstraint::SetIntRange(std::int64_t min, std::int64_t max) {
  min_ = min;
  max_ = max;
}

ParameterSpec::ParameterSpec(std::string name, ParameterType type)
    : name_(std::move(name)), type_(type) {}
std::shared_ptr<ParameterSpec> ParameterSpec::New(std::string name, ParameterType type) {
  return std::make_shared<ParameterSpec>(std::move(name), type);
}
void ParameterSpec::SetShortName(std::string letter) {
  shortName_ = std::move(letter);
}
void ParameterSpec::SetRequired(bool required) {
  required_ = required;
}
void ParameterSpec::SetDescription(std::string text) {
  description_ = std::move(text);
}
void ParameterSpec::SetConstraint(std::shared_ptr<ParameterConstraint> constraint) {
  constraint_ = std::move(constraint);
}

std::shared_ptr<InputSpec> InputSpec::New() {
  return std::make_shared<InputSpec>();
}
void InputSpec::AddParameter(std::shared_ptr<ParameterSpec> parameter) {
  parameters_.push_back(std::move(parameter));
}

std::shared_ptr<OutputSpec> OutputSpec::New() {
  return std::make_shared<OutputSpec>();
}
void OutputSpec::SetRootObject(std::shared_ptr<MetaObj::MetaObject> rootTemplate) {
  root_ = std::move(rootTemplate);
}

namespace {

/// Throws `std::logic_error` when the value is absent or of another type: the command is wrong.
template <class T>
const T& ValueOf(const std::map<std::string, Input::Value>& values, const std::string& name) {
  const auto found = values.find(name);
  const T* const value = found == values.end() ? nullptr : std::get_if<T>(&found->second);
  if (!value)
    throw std::logic_error("the command read a value of --" + name + " that was not given");
  return *value;
}

}  // namespace

std::shared_ptr<Input> Input::New() {
  return std::make_shared<Input>();
}
bool Input::HasParameter(const std::string& name) const {
  return values_.contains(name);
}
std::string Input::GetParameter(const std::string& name) const {
  return HasParameter(name) ? ValueOf<std::string>(values_, name) : "";
}
std::int64_t Input::GetParameterInt(const std::string& name) const {
  return ValueOf<std::int64_t>(values_, name);
}
bool Input::GetParameterBool(const std::string& name) const {
  return ValueOf<bool>(values_, name);
}
bool Input::IsFlagSet(const std::string& name) const {
  return HasParameter(name) && ValueOf<bool>(values_, name);
}
void Input::GetParameterList(const std::string& name, std::vector<std::string>& values) const {
  values = ValueOf<std::vector<std::string>>(values_, name);
}
void Input::SetParameter(const std::string& name, Value value) {
  values_.insert_or_assign(name, std::move(value));
}

std::shared_ptr<Output> Output::New() {
  return std::make_shared<Output>();
}
void Output::SetRootObject(std::shared_ptr<MetaObj::MetaObject> root) {
  root_ = std::move(root);
}
void Output::AddErrorMessage(std::string text) {
  errors_.push_back(std::move(text));
}

CallTargetSpec::~CallTargetSpec() = default;
CallTarget::~CallTarget() = default;

}  // namespace CliTools::CallSpec
