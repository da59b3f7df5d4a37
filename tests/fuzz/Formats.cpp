// The documents that formatters write of any result give it back.

#include <fuzzer/FuzzedDataProvider.h>
#include <libxml/parser.h>
#include <libxml/tree.h>

#include <memory>
#include <nlohmann/json.hpp>
#include <vector>

#include "Fuzz.h"
#include "clitools/Format.h"

using namespace CliTools::MetaObj;
using CliTools::Format;
using Json = nlohmann::ordered_json;

namespace {

/// With U+FFFD for what is not UTF-8.
std::string Utf8(const std::string& text) {
  return Json::parse(Json(text).dump(-1, ' ', false, Json::error_handler_t::replace));
}

/// Makes any result of the fuzzer's bytes. A list of records has the fields of its first record,
/// but not all of them in each.
class Maker {
 public:
  Maker(const std::uint8_t* data, std::size_t size) : data_(data, size) {}

  Json Make(int depth = 0) {
    constexpr int kText = 2, kRecords = 5, kDeepest = 3;
    Json made;
    switch (data_.ConsumeIntegralInRange(0, depth < kDeepest ? kRecords : kText)) {
      case 0:
        return data_.ConsumeBool();
      case 1:
        return data_.ConsumeIntegral<std::int64_t>();
      case kText:
        return Text();
      case 3:
        made = Json::array();
        while (data_.ConsumeBool()) made.push_back(Text());
        return made;
      case 4:
        return MakeRecord(depth);
      default:
        made = Json::array({MakeRecord(depth)});
        while (data_.ConsumeBool()) {
          Json record = Json::object();
          for (const auto& [name, ignored] : made[0].items()) {
            if (data_.ConsumeBool()) record[name] = Make(depth + 1);
          }
          made.push_back(record);
        }
        return made;
    }
  }

 private:
  std::string Text() { return data_.ConsumeRandomLengthString(); }

  Json MakeRecord(int depth) {
    Json record = Json::object();
    while (data_.ConsumeBool()) record[Utf8(Text())] = Make(depth + 1);
    return record;
  }

  FuzzedDataProvider data_;
};

/// Whether it is a list of records that has any.
bool HoldsRecords(const Json& value) {
  return value.is_array() && !value.empty() && value[0].is_object();
}

std::shared_ptr<MetaObject> ToMeta(const Json& value);

std::shared_ptr<MetaStruct> ToRecord(const Json& object) {
  auto record = MetaStruct::New("R");
  for (const auto& [name, field] : object.items()) record->SetField(name, ToMeta(field));
  return record;
}

std::shared_ptr<MetaObject> ToMeta(const Json& value) {
  if (value.is_string()) return MetaString::New(value);
  if (value.is_boolean()) return MetaBool::New(value);
  if (value.is_number()) return MetaInt::New(value);
  if (value.is_object()) return ToRecord(value);
  auto list = MetaList::New(HoldsRecords(value) ? MetaType::kStruct : MetaType::kString);
  for (const Json& element : value) {
    element.is_object() ? list->Add(ToRecord(element)) : list->Add(element.get<std::string>());
  }
  return list;
}

/// With U+FFFD also for what no XML document holds.
std::string XmlText(const std::string& text) {
  std::string held = Utf8(text);
  for (std::size_t at = 0; at < held.size(); ++at) {
    const bool isSpace = held[at] == '\t' || held[at] == '\n' || held[at] == '\r';
    const bool isControl = held[at] >= 0 && held[at] < ' ' && !isSpace;
    const std::string three = held.substr(at, 3);
    if (isControl) held.replace(at, 1, "\uFFFD");
    if (three == "\uFFFE" || three == "\uFFFF") held.replace(at, 3, "\uFFFD");
  }
  return held;
}

/// The same value with other texts.
Json With(std::string (*text)(const std::string&), const Json& value) {
  if (value.is_string()) return text(value);
  if (!value.is_structured()) return value;
  Json made = value.is_array() ? Json::array() : Json::object();
  for (const auto& [name, part] : value.items()) {
    (value.is_array() ? made.emplace_back() : made[text(name)]) = With(text, part);
  }
  return made;
}

std::string Take(xmlChar* chars) {
  const std::unique_ptr<xmlChar, decltype(xmlFree)> owner(chars, xmlFree);
  return reinterpret_cast<const char*>(chars);
}

Json FromXml(xmlNode* node) {
  const std::string kind = reinterpret_cast<const char*>(node->name);
  const bool isList = kind == "list";
  if (kind == "string") return Take(xmlNodeGetContent(node));
  if (kind == "integer") return std::stoll(Take(xmlNodeGetContent(node)));
  if (kind == "boolean") return Take(xmlNodeGetContent(node)) == "true";
  Json made = isList ? Json::array() : Json::object();
  for (auto* part = xmlFirstElementChild(node); part; part = xmlNextElementSibling(part)) {
    (isList ? made.emplace_back() : made[Take(xmlGetProp(part, BAD_CAST "name"))]) =
        FromXml(isList ? part : xmlFirstElementChild(part));
  }
  return made;
}

Json ParseXml(const std::string& text) {
  const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document(
      xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr, XML_PARSE_HUGE),
      xmlFreeDoc);
  Fuzz::Same("XML", document != nullptr, true);
  return FromXml(xmlFirstElementChild(xmlDocGetRootElement(document.get())));
}

/// Rows of cells as RFC 4180 has them, but for the line ends, which are the host's.
Json ParseCsv(const std::string& text) {
  Json rows = Json::array();
  for (std::size_t at = 0; at < text.size();) {
    Json& row = rows.emplace_back(Json::array());
    do {
      const bool isQuoted = text.at(at) == '"';
      std::size_t end = isQuoted ? at : text.find_first_of("\",\r\n", at);
      std::string cell = text.substr(at, end - at);
      while (isQuoted && text.at(end) == '"') {  // up to the next quote; two make one
        const std::size_t next = text.find('"', end + 1);
        cell += (end == at ? "" : "\"") + text.substr(end + 1, next - end - 1);
        end = next + 1;
      }
      row.push_back(cell);
      at = end + 1;
    } while (text.at(at - 1) == ',');
    Fuzz::Same("what ends a row", text.at(at - 1), '\n');
  }
  return rows;
}

/// With U+FFFD also for NUL, which no CSV file holds.
std::string CsvText(const std::string& text) {
  std::string held = Utf8(text);
  for (std::size_t at = 0; (at = held.find('\0', at)) != std::string::npos;) {
    held.replace(at, 1, "\uFFFD");
  }
  return held;
}

/// A value as a cell of CSV shows it.
std::string Flat(const Json& value) {
  if (value.is_string()) return value;
  if (!value.is_structured()) return value.dump();
  std::string text;
  for (const auto& [name, part] : value.items()) {
    text += "," + (value.is_object() ? name + ": " : "") + Flat(part);
  }
  return text.substr(std::min<std::size_t>(1, text.size()));
}

/// The header and a row for each record.
Json Table(const Json& records) {
  Json rows = Json::array({Json::array()});
  for (const auto& [name, ignored] : records[0].items()) rows[0].push_back(name);
  for (const Json& record : records) {
    Json& row = rows.emplace_back(Json::array());
    for (const std::string name : rows[0]) {
      row.push_back(record.contains(name) ? CsvText(Flat(record[name])) : "");
    }
  }
  for (Json& name : rows[0]) name = CsvText(name);
  return rows;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Json value = Maker(data, size).Make();
  const auto result = ToMeta(value);
  Fuzz::Same("JSON", Json::parse(Format(*result, "json", {})), With(Utf8, value));
  Fuzz::Same("XML", ParseXml(Format(*result, "xml", {})), With(XmlText, value));
  const Json records = value.is_object() ? Json::array({value}) : value;
  if (HoldsRecords(records) && !records[0].empty()) {
    Fuzz::Same("CSV", ParseCsv(Format(*result, "csv", {})), Table(records));
  }
  return 0;
}
