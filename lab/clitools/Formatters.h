// What the formatters share, and the formatters themselves.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "clitools/Display.h"
#include "clitools/Format.h"

namespace CliTools {

using MetaObj::MetaList;
using MetaObj::MetaObject;
using MetaObj::MetaStruct;
using MetaObj::MetaType;
using Pairs = AutoCli::CommandSpec::Pairs;

/// A field that is shown of each of several records.
struct Column {
  std::string name;
  std::string unit;  ///< empty if there is none
  MetaType type;
};

/// One record or the records of a list. All are shown alike, as the list's element template or
/// else the first record says.
struct RecordSet {
  std::string name;  ///< of the records' structure; empty if nothing tells it
  std::string caption;
  std::vector<Column> columns;
  std::vector<const MetaStruct*> records;
};

/// Returns the record's value, which lives as long as the record has it; null if it has none.
const MetaObject* ValueOf(const MetaStruct& record, const Column& column);

/// Whether `value` is a record or a list of records.
bool HoldsRecords(const MetaObject& value);
/// `value` must hold records, and outlive what is returned.
RecordSet RecordsOf(const MetaObject& value, const Pairs& parameters);

/// The elements of a list.
const std::vector<std::shared_ptr<MetaObject>>& ElementsOf(const MetaObject& list);

/// A value as one text: a list's elements joined by `separator`, a record as "Field: value" pairs.
/// Empty for null. Bytes stay as they are.
std::string PlainText(const MetaObject* value, std::string_view separator);

std::string FormatBare(const MetaObject& root, const Pairs& parameters, const Style& style);
std::string FormatSimple(const MetaObject& root, const Pairs& parameters, const Style& style);
/// `root` must hold records.
std::string FormatTable(const MetaObject& root, const Pairs& parameters, const Style& style);
/// Hands over a long list in parts.
void FormatJson(const MetaObject& root, const Pairs& parameters, const Style& style,
                const Sink& sink);
/// `root` must hold records.
std::string FormatCsv(const MetaObject& root, const Pairs& parameters, const Style& style);

}  // namespace CliTools
