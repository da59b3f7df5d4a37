// What a command of the lab declares and does, as a row of a table.
#pragma once

#include <span>
#include <variant>
#include <vector>

#include "corectl/session/Session.h"
#include "frame/Frame.h"

namespace Lab {

using namespace OrvaneCli::DovraNamespace;

/// A value of any type that a field of a record can have.
struct FieldValue {
  FieldValue(const char* text) : meta(MetaString::New(text)) {}
  FieldValue(const std::string& text) : meta(MetaString::New(text)) {}
  FieldValue(std::int64_t number) : meta(MetaInt::New(number)) {}
  FieldValue(bool truth) : meta(MetaBool::New(truth)) {}

  std::shared_ptr<CliTools::MetaObj::MetaObject> meta;
};

struct RecordField {
  const char* name;
  FieldValue value;
};
StructPtr MakeRecord(const char* name, std::initializer_list<RecordField> fields);

struct ParameterRow {
  const char* name;
  const char* letter;  ///< empty if there is none
  ParameterType type;
  Need need;
  const char* description;
  ConstraintPtr (*constraint)() = nullptr;
  const char* values = nullptr;  ///< the list that completion offers, such as "hosts"
};

enum class Scope {
  kHost,  ///< autocli's --host selects the host
  kLab,   ///< --host is refused
};

// What a command does. A change is one transaction, and throws `DovraCtlException` for a refusal.
using HostChange = void (*)(Store&, HostRow&, const InputPtr&);
using LabChange = void (*)(Store&, const InputPtr&);
struct RecordList {
  StructPtr (*sample)();  ///< returns a record with every field
  std::vector<StructPtr> (*records)(Store&);
  const char* columns = nullptr;  ///< the fields that a table shows by default; null: all
};

/// A command, or a namespace if it does nothing.
struct CommandRow {
  const char* path;
  const char* description;
  Scope scope = Scope::kLab;
  const char* examples = nullptr;  ///< "# PURPOSE" and a command line, in turn
  std::initializer_list<ParameterRow> parameters = {};
  std::variant<std::monostate, HostChange, LabChange, RecordList> work = {};
  const char* failure = nullptr;  ///< the beginning of the message of a refusal
  void (*afterCommit)(const OutputPtr&) = nullptr;
  const char* question = nullptr;  ///< what has to be confirmed before a change
};

/// Registers the rows below `root`. Each follows the namespace that it belongs to.
void Register(std::span<const CommandRow> rows, CliTools::AutoCli::Namespace& root);

}  // namespace Lab
