#include "clitools/Formatters.h"
#include "clitools/Text.h"

namespace CliTools {

namespace {

std::string Cell(std::string_view text) {
  std::string valid = ValidUtf8(text);
  const bool isPlain = valid.find_first_of("\",\n\r") == std::string::npos &&
                       !valid.starts_with(' ') && !valid.ends_with(' ');
  if (isPlain) return valid;
  std::string quoted = "\"";
  for (const char c : valid) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

}  // namespace

std::string FormatCsv(const MetaObject& root, const Pairs& parameters, const Style&) {
  const RecordSet set = RecordsOf(root, parameters);
  std::string text;
  const auto appendCell = [&](const Column& column, std::string_view value) {
    text += Cell(value);
    text += &column == &set.columns.back() ? '\n' : ',';
  };
  for (const Column& column : set.columns) appendCell(column, column.name);
  for (const MetaStruct* record : set.records) {
    for (const Column& column : set.columns) {
      appendCell(column, PlainText(record->GetField(column.name).get(), ","));
    }
  }
  return text;
}

}  // namespace CliTools
