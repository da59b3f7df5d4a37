#include <nlohmann/json.hpp>

#include "clitools/Formatters.h"

namespace CliTools {

namespace {

using Json = nlohmann::ordered_json;

Json ToJson(const MetaObject& value, const Pairs& parameters);

Json ToJson(const MetaStruct& record, const RecordSet& set, const Pairs& parameters) {
  Json object = Json::object();
  for (const Column& column : set.columns) {
    const auto value = record.GetField(column.name);
    if (value) object.emplace(column.name, ToJson(*value, parameters));
  }
  return object;
}

Json ToJson(const MetaObject& value, const Pairs& parameters) {
  switch (value.GetType()) {
    case MetaType::kBool:
      return static_cast<const MetaObj::MetaBool&>(value).GetValue();
    case MetaType::kInt:
      return static_cast<const MetaObj::MetaInt&>(value).GetValue();
    case MetaType::kString:
      return static_cast<const MetaObj::MetaString&>(value).GetValue();
    case MetaType::kStruct:
      return ToJson(static_cast<const MetaStruct&>(value), RecordsOf(value, parameters),
                    parameters);
    case MetaType::kList:
      break;
  }
  Json array = Json::array();
  if (HoldsRecords(value)) {
    const RecordSet set = RecordsOf(value, parameters);
    for (const MetaStruct* record : set.records) array.push_back(ToJson(*record, set, parameters));
  } else {
    for (const auto& element : ElementsOf(value)) array.push_back(ToJson(*element, parameters));
  }
  return array;
}

std::string Dump(const Json& value) {
  return value.dump(2, ' ', false, Json::error_handler_t::replace);
}

void AppendIndented(std::string& text, std::string_view lines) {
  text += "  ";
  for (const char c : lines) {
    text += c;
    if (c == '\n') text += "  ";
  }
}

}  // namespace

std::string FormatJson(const MetaObject& root, const Pairs& parameters) {
  if (root.GetType() != MetaType::kList || !HoldsRecords(root)) {
    return Dump(ToJson(root, parameters)) + '\n';
  }
  // Record by record: a list may hold thousands, and their tree takes many times their text.
  const RecordSet set = RecordsOf(root, parameters);
  if (set.records.empty()) return "[]\n";
  std::string text;
  for (const MetaStruct* record : set.records) {
    text += text.empty() ? "[\n" : ",\n";
    AppendIndented(text, Dump(ToJson(*record, set, parameters)));
  }
  return text + "\n]\n";
}

}  // namespace CliTools
