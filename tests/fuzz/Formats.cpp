// Any result makes a document that other people's parsers read, and JSON gives the result back.
// The input is MessagePack, which holds what JSON does, and texts that are not UTF-8.

#include <nlohmann/json.hpp>
#include <utility>

#include "Fuzz.h"
#include "clitools/Format.h"

using namespace CliTools::MetaObj;
using Json = nlohmann::ordered_json;

namespace {

/// With U+FFFD for what is not UTF-8.
Json Readable(const Json& value) {
  return Json::parse(value.dump(-1, ' ', false, Json::error_handler_t::replace));
}

/// Of any value that which a result can be: its lists are of texts, or of records that have fields
/// of the first one's.
Json Tame(const Json& value) {
  if (value.is_boolean() || value.is_string()) return value;
  if (value.is_number_integer()) return value.get<std::int64_t>();
  Json tamed = value.is_object() ? Json::object() : Json::array();
  if (value.is_object()) {
    for (const auto& [name, field] : value.items()) tamed[Readable(name)] = Tame(field);
  } else if (value.is_array()) {
    for (const Json& element : value) {
      if (value.front().is_object() ? !element.is_object() : !element.is_string()) continue;
      Json kept = Tame(element);
      if (kept.is_object() && !tamed.empty()) {
        const Json whole = std::exchange(kept, Json::object());
        for (const auto& [name, ignored] : tamed.front().items()) {
          if (whole.contains(name)) kept[name] = whole[name];
        }
      }
      tamed.push_back(kept);
    }
  }
  return tamed;
}

std::shared_ptr<MetaObject> Make(const Json& tamed) {
  if (tamed.is_boolean()) return MetaBool::New(tamed.get<bool>());
  if (tamed.is_string()) return MetaString::New(tamed.get<std::string>());
  if (tamed.is_number()) return MetaInt::New(tamed.get<std::int64_t>());
  if (tamed.is_object()) {
    const auto record = MetaStruct::New("R");
    for (const auto& [name, field] : tamed.items()) record->SetField(name, Make(field));
    return record;
  }
  const bool isOfRecords = !tamed.empty() && tamed.front().is_object();
  const auto list = MetaList::New(isOfRecords ? MetaType::kStruct : MetaType::kString);
  for (const Json& element : tamed) {
    if (isOfRecords) {
      list->Add(std::static_pointer_cast<MetaStruct>(Make(element)));
    } else {
      list->Add(element.get<std::string>());
    }
  }
  return list;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kMost = 1000;  // bytes; more would only nest more than the parser can take
  const Json value = size > kMost ? Json(Json::value_t::discarded)
                                  : Json::from_msgpack(data, data + size, true, false);
  if (value.is_discarded()) return -1;
  const Json tamed = Tame(value);
  const auto result = Make(tamed);
  for (const std::string& formatter : CliTools::FormatterNames()) {
    const std::string text = CliTools::Format(*result, formatter, {});
    Require("UTF-8", !Json(text).dump().empty());  // throws
    if (formatter == "json") Require("JSON", Json::parse(text) == Readable(tamed));
  }
  return 0;
}
