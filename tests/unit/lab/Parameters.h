// Parameters of every type, for tests.
#pragma once

#include <string>
#include <vector>

#include "platform/clitools/CallSpec.h"

namespace CliTools {

using namespace CliTools::CallSpec;

inline const std::vector<std::string> kRoles = {"witness", "node"};
constexpr std::int64_t kMostLevel = 512;

inline std::shared_ptr<InputSpec> MakeSpec() {
  const auto roles = ParameterConstraint::New(ParameterConstraintType::kStringEnum);
  for (const std::string& role : kRoles) roles->AddStringEnum(role, "");
  const auto range = ParameterConstraint::New(ParameterConstraintType::kIntRange);
  range->SetIntRange(0, kMostLevel);
  const auto spec = InputSpec::New();
  const auto add = [&](const char* name, const char* letter, ParameterType type,
                       std::shared_ptr<ParameterConstraint> constraint = nullptr) {
    const auto parameter = ParameterSpec::New(name, type);
    parameter->SetShortName(letter);
    parameter->SetRequired(name == std::string("uuid"));
    parameter->SetConstraint(std::move(constraint));
    spec->AddParameter(parameter);
  };
  add("uuid", "u", ParameterType::kString);
  add("uuid-file", "?", ParameterType::kString);
  add("type", "t", ParameterType::kString, roles);
  add("roles", "r", ParameterType::kStringList, roles);
  add("level", "l", ParameterType::kInt, range);
  add("port", "p", ParameterType::kInt);
  add("enabled", "e", ParameterType::kBool);
  add("wait-time", "", ParameterType::kInt);
  add("wait", "w", ParameterType::kFlag);
  add("boot", "b", ParameterType::kFlag);
  add("disks", "d", ParameterType::kStringList);
  return spec;
}

/// Returns words that give these values, in the order of the parameters, as "--name=value".
inline std::vector<std::string> WriteOut(const InputSpec& spec, const Input& input) {
  std::vector<std::string> words;
  for (const auto& parameter : spec.GetParameters()) {
    const std::string& name = parameter->GetName();
    if (!input.HasParameter(name)) continue;
    const ParameterType type = parameter->GetType();
    std::vector<std::string> values;
    if (type == ParameterType::kString) values = {input.GetParameter(name)};
    if (type == ParameterType::kInt) values = {std::to_string(input.GetParameterInt(name))};
    if (type == ParameterType::kBool) values = {input.GetParameterBool(name) ? "true" : "false"};
    if (type == ParameterType::kStringList) input.GetParameterList(name, values);
    if (type == ParameterType::kFlag) words.push_back("--" + name);
    for (const std::string& value : values) words.push_back("--" + name + '=' + value);
  }
  return words;
}

}  // namespace CliTools
