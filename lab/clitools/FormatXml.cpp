// <output> holds one value. A value's element is named after its type: <boolean>, <integer>,
// <string>, <list> of values, <structure name="..."> of <field name="..."> with one value each.
#include "clitools/Formatters.h"
#include "clitools/Text.h"

namespace CliTools {

namespace {

/// A text as content or in double quotes. What XML cannot hold becomes U+FFFD; control characters
/// that it can hold are references, as a parser would otherwise turn them into blanks.
std::string EscapeXml(std::string_view text) {
  std::string escaped;
  ForEachCodePoint(text, [&](const CodePoint& point) {
    const char32_t value = point.value;
    const bool isSpace = value == '\t' || value == '\n' || value == '\r';
    if (!point.valid || (value < 0x20 && !isSpace) || value == 0xFFFE || value == 0xFFFF) {
      escaped += kReplacement;
    } else if (IsControl(value)) {
      escaped += "&#" + std::to_string(static_cast<unsigned>(value)) + ';';
    } else if (value == '&') {
      escaped += "&amp;";
    } else if (value == '<') {
      escaped += "&lt;";
    } else if (value == '>') {
      escaped += "&gt;";
    } else if (value == '"') {
      escaped += "&quot;";
    } else {
      escaped += point.bytes;
    }
  });
  return escaped;
}

void Append(std::string& text, const MetaObject& value, const Pairs& parameters);

void AppendRecords(std::string& text, const RecordSet& set, const Pairs& parameters) {
  for (const MetaStruct* record : set.records) {
    text += "\n<structure name=\"" + EscapeXml(set.name) + "\">\n";
    for (const Column& column : set.columns) {
      const auto* const value = set.ValueOf(*record, column);
      if (!value) continue;
      text += "<field name=\"" + EscapeXml(column.name) + "\">";
      Append(text, *value, parameters);
      text += "</field>\n";
    }
    text += "</structure>";
  }
  if (!set.records.empty()) text += '\n';
}

void AppendElement(std::string& text, std::string_view tag, const MetaObject& value) {
  text += '<';
  text += tag;
  text += '>';
  text += EscapeXml(PlainText(&value, ""));
  text += "</";
  text += tag;
  text += '>';
}

void Append(std::string& text, const MetaObject& value, const Pairs& parameters) {
  switch (value.GetType()) {
    case MetaType::kBool:
      return AppendElement(text, "boolean", value);
    case MetaType::kInt:
      return AppendElement(text, "integer", value);
    case MetaType::kString:
      return AppendElement(text, "string", value);
    case MetaType::kStruct:
      return AppendRecords(text, RecordsOf(value, parameters), parameters);
    case MetaType::kList:
      break;
  }
  text += "<list>";
  if (HoldsRecords(value)) {
    AppendRecords(text, RecordsOf(value, parameters), parameters);
  } else {
    for (const auto& element : ElementsOf(value)) Append(text, *element, parameters);
  }
  text += "</list>";
}

}  // namespace

std::string FormatXml(const MetaObject& root, const Pairs& parameters, const Style&) {
  std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<output>";
  Append(text, root, parameters);
  return text + "</output>\n";
}

}  // namespace CliTools
