// Rows that declare the lab's commands.
#pragma once

#include <span>
#include <variant>
#include <vector>

#include "corectl/session/Session.h"
#include "frame/Frame.h"

namespace Lab {

using namespace OrvaneCli::DovraNamespace;

/// The value of a record's field.
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
  const char* letter;  ///< empty: none
  ParameterType type;
  Need need;
  const char* description;
  ConstraintPtr (*constraint)() = nullptr;
  const char* values = nullptr;  ///< the list that completion offers, such as "hosts"
};

// What a command does. A change is one transaction, and throws `DovraCtlException` for a refusal.
using HostChange = void (*)(Store&, HostRow&, const InputPtr&);  ///< of the selected host
struct LabChange {
  /// May set a remark, which is printed to standard error when the change is committed.
  void (*change)(Store&, const InputPtr&, std::string& remark);
  bool takesHost = false;  ///< whether autocli's --host is allowed
};
struct RecordList {
  StructPtr (*sample)();  ///< returns a record with every field
  std::vector<StructPtr> (*records)(Store&);
  bool takesHost;
  const char* columns = nullptr;  ///< the fields that a table shows by default; null: all
};

/// A command or, without `work` and `failure`, a namespace.
struct CommandRow {
  const char* path;
  const char* description;
  const char* examples = "";  ///< "# PURPOSE" and a command line, in turn
  std::initializer_list<ParameterRow> parameters = {};
  std::variant<std::monostate, HostChange, LabChange, RecordList> work = {};
  const char* failure = nullptr;  ///< the beginning of a refusal's message
  void (*afterCommit)(const OutputPtr&) = nullptr;
  const char* question = nullptr;  ///< asked before the change
};

/// Registers the rows below `root`. Each follows the namespace that it belongs to.
void Register(std::span<const CommandRow> rows, CliTools::AutoCli::Namespace& root);

}  // namespace Lab
