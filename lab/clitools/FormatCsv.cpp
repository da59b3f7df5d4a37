#include "baselibs/Strings.h"
#include "clitools/Display.h"
#include "clitools/Formatters.h"

namespace CliTools {

namespace {

std::string Cell(std::string_view text) {
  std::string valid = ValidUtf8(text);
  // Most CSV readers stop at a NUL.
  for (std::size_t at = 0; (at = valid.find('\0', at)) != std::string::npos;) {
    valid.replace(at, 1, kReplacement);
  }
  const bool needsQuotes = valid.find_first_of("\",\n\r") != std::string::npos ||
                           valid.starts_with(' ') || valid.ends_with(' ');
  if (!needsQuotes) return valid;
  std::string quoted = "\"";
  for (const char c : valid) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

}  // namespace

void FormatCsv(const MetaObject& root, const Pairs& parameters, const Style& style,
               const Sink& sink) {
  const RecordSet set = RecordsOf(root, parameters);
  if (set.columns.empty()) return;
  const auto writeLine = [&](auto&& textOf) {
    sink(
        BaseLibs::Join(set.columns, ",", [&](const auto& column) { return Cell(textOf(column)); }) +
        '\n');
  };
  if (style.header) writeLine([](const Column& column) { return column.name; });
  for (const MetaStruct* record : set.records) {
    writeLine([&](const Column& column) { return PlainText(ValueOf(*record, column), ","); });
  }
}

}  // namespace CliTools
