// Any result makes a document that other people's parsers read, and JSON gives the result back.

#include <fuzzer/FuzzedDataProvider.h>
#include <libxml/parser.h>

#include <nlohmann/json.hpp>

#include "Fuzz.h"
#include "clitools/Format.h"

using namespace CliTools::MetaObj;
using Json = nlohmann::ordered_json;

namespace {

/// A result, and what is to be read back of it.
struct Made {
  std::shared_ptr<MetaObject> result;
  Json json;
};

/// Makes any result of the fuzzer's bytes.
class Maker {
 public:
  Maker(const std::uint8_t* data, std::size_t size) : data_(data, size) {}

  Made Make(int depth = 0) {
    constexpr int kText = 2, kAll = 5, kDeepest = 3;
    switch (data_.ConsumeIntegralInRange(0, depth < kDeepest ? kAll : kText)) {
      case 0: {
        const bool value = data_.ConsumeBool();
        return {MetaBool::New(value), value};
      }
      case 1: {
        const auto value = data_.ConsumeIntegral<std::int64_t>();
        return {MetaInt::New(value), value};
      }
      case kText: {
        const std::string value = data_.ConsumeRandomLengthString();
        return {MetaString::New(value), Utf8(value)};
      }
      case 3: {
        const auto list = MetaList::New(MetaType::kString);
        Json json = Json::array();
        while (data_.ConsumeBool()) {
          const std::string value = data_.ConsumeRandomLengthString();
          list->Add(value);
          json.push_back(Utf8(value));
        }
        return {list, json};
      }
      case 4:
        return MakeRecord(depth);
      default: {
        const auto list = MetaList::New(MetaType::kStruct);
        Json json = Json::array();
        while (json.empty() || data_.ConsumeBool()) {
          const Made record = json.empty() ? MakeRecord(depth) : MakeRecord(depth, json[0]);
          list->Add(std::static_pointer_cast<MetaStruct>(record.result));
          json.push_back(record.json);
        }
        return {list, json};
      }
    }
  }

 private:
  /// With U+FFFD for what is not UTF-8.
  static std::string Utf8(const std::string& text) {
    return Json::parse(Json(text).dump(-1, ' ', false, Json::error_handler_t::replace));
  }

  /// A record of any fields.
  Made MakeRecord(int depth) {
    Json names = Json::object();
    while (data_.ConsumeBool()) names[Utf8(data_.ConsumeRandomLengthString())] = true;
    return MakeRecord(depth, names);
  }

  /// A record that has fields of another one's, as all of a list's have those of its first.
  Made MakeRecord(int depth, const Json& other) {
    const auto record = MetaStruct::New("R");
    Json json = Json::object();
    for (const auto& [name, ignored] : other.items()) {
      if (!data_.ConsumeBool()) continue;
      const Made field = Make(depth + 1);
      record->SetField(name, field.result);
      json[name] = field.json;
    }
    return {record, json};
  }

  FuzzedDataProvider data_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Made made = Maker(data, size).Make();
  for (const std::string& formatter : CliTools::FormatterNames()) {
    const std::string text = CliTools::Format(*made.result, formatter, {});
    Require("UTF-8", !Json(text).dump().empty());  // throws
    if (formatter == "json") Require("JSON", Json::parse(text) == made.json);
    if (formatter != "xml") continue;
    xmlDoc* const document =
        xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr, XML_PARSE_HUGE);
    Require("XML", document != nullptr);
    xmlFreeDoc(document);
  }
  return 0;
}
