#include "clitools/Display.h"
#include "clitools/Formatters.h"

namespace CliTools {

namespace {

std::string Cell(std::string_view text) {
  std::string valid = ValidUtf8(text);
  // Those who read csv as a rule take a NUL for the end of the file.
  for (std::size_t at = 0; (at = valid.find('\0', at)) != std::string::npos;) {
    valid.replace(at, 1, kReplacement);
  }
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

std::string FormatCsv(const MetaObject& root, const Pairs& parameters, const Style& style) {
  const RecordSet set = RecordsOf(root, parameters);
  std::string text;
  const auto appendCell = [&](const Column& column, std::string_view value) {
    text += Cell(value);
    text += &column == &set.columns.back() ? '\n' : ',';
  };
  if (style.header) {
    for (const Column& column : set.columns) appendCell(column, column.name);
  }
  for (const MetaStruct* record : set.records) {
    for (const Column& column : set.columns) {
      appendCell(column, PlainText(ValueOf(*record, column), ","));
    }
  }
  return text;
}

}  // namespace CliTools
