#include "plugin/LabCommand.h"

#include <cstdio>

namespace Lab {

using CliTools::AutoCli::Command;
using CliTools::AutoCli::CommandSpec;
using CliTools::AutoCli::Namespace;
using CliTools::CallSpec::InputSpec;
using CliTools::CallSpec::ParameterSpec;

namespace {

class LabCommand : public Command {
 public:
  LabCommand(const CommandRow& row, const char* type, bool takesHost) : row_(row) {
    SetDescription(row.description);
    SetMetaDataField("type", type);
    SetMetaDataField("scope", takesHost ? "external" : "lab");
    SetMetaDataField("examples", row.examples);
    std::string values;
    for (const ParameterRow& parameter : row.parameters) {
      if (parameter.values)
        values.append(parameter.name).append("=").append(parameter.values) += ',';
    }
    SetMetaDataField("values", values);
  }

 protected:
  const CommandRow& row_;

 private:
  InputSpecPtr GetInputSpecInternal() override {
    auto spec = InputSpec::New();
    for (const ParameterRow& row : row_.parameters) {
      auto parameter = ParameterSpec::New(row.name, row.type);
      parameter->SetShortName(row.letter);
      parameter->SetRequired(row.need == Need::kRequired);
      parameter->SetDescription(row.description);
      if (row.constraint) parameter->SetConstraint(row.constraint());
      spec->AddParameter(std::move(parameter));
    }
    return spec;
  }
};

class Operation final : public LabCommand {
 public:
  Operation(const CommandRow& row, bool takesHost) : LabCommand(row, "operation", takesHost) {
    if (row.question) SetMetaDataField("confirm", row.question);
  }

 private:
  OutputSpecPtr GetOutputSpecInternal() override { return MakeOutputSpec(MetaBool::New()); }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    std::string remark;
    try {
      if (const auto* const change = std::get_if<HostChange>(&row_.work)) {
        Session::Current().Change(
            [&](Store& store, HostRow& host) { (*change)(store, host, input); });
      } else {
        ChangeLab(
            [&](Store& store) { std::get<LabChange>(row_.work).change(store, input, remark); });
      }
      if (!remark.empty()) std::fprintf(stderr, "%s\n", remark.c_str());
      if (row_.afterCommit) row_.afterCommit(output);
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure, row_.failure);
    }
  }
};

class Listing final : public LabCommand {
 public:
  Listing(const CommandRow& row, const RecordList& list)
      : LabCommand(row, "fetcher", list.takesHost), list_(list) {
    SetDefaultOutputFormatter("table");
    if (list.columns) SetMetaDataField("columns", list.columns);
  }

 private:
  OutputSpecPtr GetOutputSpecInternal() override {
    return MakeOutputSpec(MetaList::New(MetaType::kStruct, list_.sample()));
  }

  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    const auto list = MetaList::New(MetaType::kStruct, list_.sample());
    Store& store = OpenStore();
    const Store::Transaction transaction(store, Store::Transaction::Kind::kRead);
    for (StructPtr& record : list_.records(store)) list->Add(std::move(record));
    output->SetRootObject(list);
  }

  const RecordList& list_;
};

std::shared_ptr<CommandSpec> MakeNode(const CommandRow& row) {
  if (const auto* const list = std::get_if<RecordList>(&row.work)) {
    return std::make_shared<Listing>(row, *list);
  }
  if (const auto* const change = std::get_if<LabChange>(&row.work)) {
    return std::make_shared<Operation>(row, change->takesHost);
  }
  if (row.failure) return std::make_shared<Operation>(row, true);
  auto space = Namespace::New();
  space->SetDescription(row.description);
  return space;
}

}  // namespace

StructPtr MakeRecord(const char* name, std::initializer_list<RecordField> fields) {
  auto record = MetaStruct::New(name);
  for (const RecordField& field : fields) record->SetField(field.name, field.value.meta);
  return record;
}

void Register(std::span<const CommandRow> rows, Namespace& root) {
  for (const CommandRow& row : rows) {
    std::string_view path = row.path;
    CommandSpec* parent = &root;
    for (std::size_t blank = 0; (blank = path.find(' ')) != std::string_view::npos;) {
      const auto child = parent->GetNamespaceNode(std::string(path.substr(0, blank)));
      parent = &dynamic_cast<CommandSpec&>(*child);
      path.remove_prefix(blank + 1);
    }
    parent->RegisterNamespaceNode(MakeNode(row), std::string(path));
  }
}

}  // namespace Lab
