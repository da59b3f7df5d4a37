#include "frame/Frame.h"

#include <stdexcept>

namespace OrvaneCli::DovraNamespace {

using CliTools::CallSpec::InputSpec;
using CliTools::CallSpec::OutputSpec;
using CliTools::CallSpec::ParameterConstraint;
using CliTools::CallSpec::ParameterConstraintType;
using CliTools::CallSpec::ParameterSpec;
using CliTools::MetaObj::MetaObject;

namespace {

std::shared_ptr<MetaObject> EmptyValue(MetaType type) {
  switch (type) {
    case MetaType::kBool:
      return MetaBool::New();
    case MetaType::kInt:
      return MetaInt::New();
    case MetaType::kList:
      return MetaList::New(MetaType::kString);
    case MetaType::kString:
      return MetaString::New();
    case MetaType::kStruct:
      break;
  }
  throw std::logic_error("a field cannot be a record");
}

}  // namespace

InputSpecPtr MakeInputSpec(std::initializer_list<Parameter> parameters) {
  auto spec = InputSpec::New();
  for (const Parameter& parameter : parameters) {
    auto one = ParameterSpec::New(parameter.name, parameter.type);
    if (parameter.shortName) one->SetShortName(parameter.shortName);
    if (parameter.need == Need::kRequired) one->SetRequired(true);
    if (parameter.constraint) one->SetConstraint(parameter.constraint);
    one->SetDescription(parameter.description);
    spec->AddParameter(std::move(one));
  }
  return spec;
}

ConstraintPtr OneOf(std::initializer_list<std::pair<const char*, const char*>> values) {
  auto constraint = ParameterConstraint::New(ParameterConstraintType::kStringEnum);
  for (const auto& [value, description] : values) constraint->AddStringEnum(value, description);
  return constraint;
}

ConstraintPtr Between(std::int64_t min, std::int64_t max) {
  auto constraint = ParameterConstraint::New(ParameterConstraintType::kIntRange);
  constraint->SetIntRange(min, max);
  return constraint;
}

StructPtr MakeStructure(const Record& record) {
  auto structure = MetaStruct::New(record.name);
  for (const Field& field : record.fields) structure->SetField(field.name, EmptyValue(field.type));
  return structure;
}

void ShowAs(const Record& record, CliTools::AutoCli::Command& command) {
  const std::string name = record.name;
  command.SetDefaultOutputFormatter(record.formatter);
  if (record.caption) command.SetDefaultOutputParameter("header:" + name, record.caption);
  std::string fields;  // not Join(), whose vector would slow every start
  for (const Field& field : record.fields) {
    if (record.separator) fields.append(fields.empty() ? "" : record.separator).append(field.name);
    if (field.unit) {
      command.SetDefaultOutputParameter("units:" + name + "." + field.name, field.unit);
    }
  }
  if (record.separator) command.SetDefaultOutputParameter("fields:" + name, std::move(fields));
}

OutputSpecPtr MakeOutputSpec(std::shared_ptr<MetaObject> rootTemplate) {
  auto spec = OutputSpec::New();
  spec->SetRootObject(std::move(rootTemplate));
  return spec;
}

void Report(const OutputPtr& output, const DovraCtlException& failure, std::string_view prefix) {
  output->AddErrorMessage(std::string(prefix) + failure.GetMessage());
}

}  // namespace OrvaneCli::DovraNamespace
