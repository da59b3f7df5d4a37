#include <cstdio>

#include "clitools/Formatters.h"
#include "clitools/Text.h"

namespace CliTools {

namespace {

/// The text on one line of valid UTF-8, so that it can be undone exactly: \\, \n, \r, and \xNN for
/// each byte of other control characters and of what is not UTF-8.
std::string Escape(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size());
  ForEachCodePoint(text, [&](const CodePoint& point) {
    if (point.value == '\\') {
      escaped += "\\\\";
    } else if (point.value == '\n') {
      escaped += "\\n";
    } else if (point.value == '\r') {
      escaped += "\\r";
    } else if (point.valid && !IsControl(point.value)) {
      escaped += point.bytes;
    } else {
      for (const char byte : point.bytes) {
        char buffer[8];
        std::snprintf(buffer, sizeof buffer, "\\x%02x", static_cast<unsigned char>(byte));
        escaped += buffer;
      }
    }
  });
  return escaped;
}

std::string At(const std::string& path, std::size_t index) {
  return path + '[' + std::to_string(index) + ']';
}

void Append(std::string& text, const std::string& path, const MetaObject& value,
            const Pairs& parameters) {
  const bool isList = value.GetType() == MetaType::kList;
  if (HoldsRecords(value)) {
    const RecordSet set = RecordsOf(value, parameters);
    for (std::size_t index = 0; index < set.records.size(); ++index) {
      const std::string record = isList ? At(path, index) : path;
      for (const Column& column : set.columns) {
        const auto field = set.records[index]->GetField(column.name);
        if (field) Append(text, record + '.' + column.name, *field, parameters);
      }
    }
  } else if (isList) {
    const auto& elements = ElementsOf(value);
    for (std::size_t index = 0; index < elements.size(); ++index) {
      Append(text, At(path, index), *elements[index], parameters);
    }
  } else {
    text += path + '=' + Escape(PlainText(&value, "")) + '\n';
  }
}

}  // namespace

std::string FormatKeyValue(const MetaObject& root, const Pairs& parameters, const Style&) {
  std::string text;
  Append(text, HoldsRecords(root) ? RecordsOf(root, parameters).name : "result", root, parameters);
  return text;
}

}  // namespace CliTools
