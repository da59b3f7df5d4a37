// The parameters of a command that has one of each kind.
#pragma once

#include <string>
#include <vector>

#include "Tree.h"

namespace CliTools {

inline const std::vector<std::string> kRoles = {"witness", "node"};
constexpr std::int64_t kMostLevel = 512;

inline std::shared_ptr<InputSpec> MakeSpec() {
  const auto roles = ParameterConstraint::New(ParameterConstraintType::kStringEnum);
  for (const std::string& role : kRoles) roles->AddStringEnum(role, "");
  const auto range = ParameterConstraint::New(ParameterConstraintType::kIntRange);
  range->SetIntRange(0, kMostLevel);
  FakeCommand command;
  command.Add("uuid", "u", ParameterType::kString, "").SetRequired(true);
  command.Add("uuid-file", "?", ParameterType::kString, "");
  command.Add("type", "t", ParameterType::kString, "").SetConstraint(roles);
  command.Add("roles", "r", ParameterType::kStringList, "").SetConstraint(roles);
  command.Add("level", "l", ParameterType::kInt, "").SetConstraint(range);
  command.Add("port", "p", ParameterType::kInt, "");
  command.Add("enabled", "e", ParameterType::kBool, "");
  command.Add("wait", "w", ParameterType::kFlag, "");
  command.Add("boot", "b", ParameterType::kFlag, "");
  command.Add("disks", "d", ParameterType::kStringList, "");
  return command.input;
}

/// The words that give these values, in the parameters' order and the spelling that leaves no
/// doubt.
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
