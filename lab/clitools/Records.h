// The records in a command's result, and which fields of them are shown.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clitools/AutoCli.h"

namespace CliTools {

using MetaObj::MetaList;
using MetaObj::MetaObject;
using MetaObj::MetaStruct;
using MetaObj::MetaType;
using Pairs = AutoCli::CommandSpec::Pairs;

/// A field that is shown of each record.
struct Column {
  std::string name;
  std::string unit;  ///< may be empty
  MetaType type;
};

/// One record, or the records of a list.
struct RecordSet {
  std::string caption;
  std::vector<Column> columns;
  std::vector<const MetaStruct*> records;
};

/// Whether `value` is a record or a list of records.
bool HoldsRecords(const MetaObject& value);

/// Returns the record whose fields all records of `value` are taken to have: `value` itself, or a
/// list's element template, or else its first element. Null when there is none.
const MetaStruct* PatternOf(const MetaObject& value);

/// Returns the names of the record's fields that are shown, in display order: those of "fields:" +
/// the structure's name, else all.
std::vector<std::string> ShownFields(const MetaStruct& record, const Pairs& parameters);

/// Returns the records of `value`, which must hold records and outlive the result.
RecordSet RecordsOf(const MetaObject& value, const Pairs& parameters);

/// Returns the record's value, which lives as long as the record has it; null if it has none.
const MetaObject* ValueOf(const MetaStruct& record, const Column& column);

/// Returns the elements of a list.
const std::vector<std::shared_ptr<MetaObject>>& ElementsOf(const MetaObject& list);

/// Returns a value as one string: a list's elements joined by `separator`, a record as "Field:
/// value" pairs. Empty for null. Bytes stay as they are.
std::string PlainText(const MetaObject* value, std::string_view separator);

}  // namespace CliTools
