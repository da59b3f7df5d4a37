// Formats any result. Every document must be UTF-8, and another parser must read the result from
// its JSON.

#include <fuzzer/FuzzedDataProvider.h>

#include <nlohmann/json.hpp>

#include "clitools/Format.h"

using namespace CliTools::MetaObj;
using Json = nlohmann::ordered_json;

namespace {

Json MakeJson(FuzzedDataProvider& data, int depth) {
  const int kind = data.ConsumeIntegralInRange(0, depth > 0 ? 5 : 2);
  if (kind == 0) return data.ConsumeBool();
  if (kind == 1) return data.ConsumeIntegral<std::int64_t>();
  if (kind == 2) return data.ConsumeRandomLengthString();
  Json record = Json::object();
  for (char unique = 'a'; unique < 'z' && data.ConsumeBool(); ++unique) {
    record[unique + data.ConsumeRandomLengthString()] = MakeJson(data, depth - 1);
  }
  if (kind == 3) return record;
  Json list = Json::array();
  if (kind == 4) list.push_back(record);  // its fields are the columns
  while (data.ConsumeBool()) {
    if (kind == 4 && data.ConsumeBool() && !record.empty()) record.erase(record.begin());
    list.push_back(kind == 4 ? record : Json(data.ConsumeRandomLengthString()));
  }
  return list;
}

std::shared_ptr<MetaObject> Make(const Json& json) {
  if (json.is_boolean()) return MetaBool::New(json.get<bool>());
  if (json.is_string()) return MetaString::New(json.get<std::string>());
  if (json.is_number()) return MetaInt::New(json.get<std::int64_t>());
  if (json.is_object()) {
    const auto record = MetaStruct::New("R");
    for (const auto& [name, field] : json.items()) record->SetField(name, Make(field));
    return record;
  }
  const bool isOfRecords = !json.empty() && json.front().is_object();
  const auto list = MetaList::New(isOfRecords ? MetaType::kStruct : MetaType::kString);
  for (const Json& element : json) {
    if (isOfRecords) {
      list->Add(std::static_pointer_cast<MetaStruct>(Make(element)));
    } else {
      list->Add(element.get<std::string>());
    }
  }
  return list;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  constexpr int kDepth = 4;
  FuzzedDataProvider data(bytes, size);
  const Json json = MakeJson(data, kDepth);
  // With U+FFFD in place of bytes that are not UTF-8.
  const Json readable = Json::parse(json.dump(-1, ' ', false, Json::error_handler_t::replace));
  const auto result = Make(json);
  for (const auto& [formatter, description] : CliTools::Formatters()) {
    const std::string text = CliTools::Format(*result, formatter, {}, {.width = 40});
    Json(text).dump();  // throws when the string is not UTF-8
    if (formatter == "json" && Json::parse(text) != readable) throw std::logic_error("wrong JSON");
  }
  return 0;
}
