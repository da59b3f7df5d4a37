// What a command of the lab declares and does, as a row of a table.
#pragma once

#include <span>
#include <vector>

#include "corectl/session/LabHost.h"
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
};

/// A namespace, or a command with either `onHost` or `onLab`, or with `list`.
struct CommandRow {
  const char* path;
  const char* description;
  /// Of the command: "lab" if autocli's --host is refused, else null.
  const char* scope = nullptr;
  std::initializer_list<ParameterRow> parameters = {};

  // A command that changes something, in one transaction. The functions throw `DovraCtlException`
  // for what they refuse.
  const char* failure = nullptr;   ///< the beginning of the message of a refusal
  const char* question = nullptr;  ///< what is to be confirmed before, if anything
  void (*onHost)(Store&, HostRow&, const InputPtr&) = nullptr;  ///< on the selected host
  void (*onLab)(Store&, const InputPtr&) = nullptr;
  void (*afterCommit)(const OutputPtr&) = nullptr;

  // A command that lists records.
  StructPtr (*sample)() = nullptr;  ///< returns a record with every field
  std::vector<StructPtr> (*list)(Store&) = nullptr;
};

/// Registers the rows below `root`. Each stands behind the namespace that it belongs to.
void Register(std::span<const CommandRow> rows, CliTools::AutoCli::Namespace& root);

}  // namespace Lab
