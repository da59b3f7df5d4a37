#include "clitools/Records.h"

#include <algorithm>

#include "baselibs/Strings.h"

namespace CliTools {

namespace {

/// Empty if the key is not set.
std::string_view Lookup(const Pairs& parameters, const std::string& key) {
  const auto found = std::ranges::find(parameters, key, &Pairs::value_type::first);
  return found == parameters.end() ? std::string_view() : found->second;
}

}  // namespace

bool HoldsRecords(const MetaObject& value) {
  if (value.GetType() == MetaType::kStruct) return true;
  return value.GetType() == MetaType::kList &&
         static_cast<const MetaList&>(value).GetElementType() == MetaType::kStruct;
}

const MetaStruct* PatternOf(const MetaObject& value) {
  if (!HoldsRecords(value)) return nullptr;
  if (value.GetType() == MetaType::kStruct) return static_cast<const MetaStruct*>(&value);
  const auto& list = static_cast<const MetaList&>(value);
  if (list.GetElementTemplate()) return list.GetElementTemplate().get();
  if (list.GetElements().empty()) return nullptr;
  return static_cast<const MetaStruct*>(list.GetElements().front().get());
}

std::vector<std::string> ShownFields(const MetaStruct& record, const Pairs& parameters) {
  std::vector<std::string> names;
  for (const auto name : BaseLibs::Split(Lookup(parameters, "fields:" + record.GetName()), ',')) {
    const std::string_view trimmed = BaseLibs::Trim(name);
    if (!trimmed.empty()) names.emplace_back(trimmed);
  }
  if (!names.empty()) return names;
  return {record.GetFieldNames().begin(), record.GetFieldNames().end()};
}

RecordSet RecordsOf(const MetaObject& value, const Pairs& parameters) {
  RecordSet set;
  if (const MetaStruct* const pattern = PatternOf(value)) {
    set.caption = Lookup(parameters, "header:" + pattern->GetName());
    for (const std::string& field : ShownFields(*pattern, parameters)) {
      const auto shown = pattern->GetField(field);
      set.columns.push_back(
          {field, std::string(Lookup(parameters, "units:" + pattern->GetName() + "." + field)),
           shown ? shown->GetType() : MetaType::kString});
    }
  }
  if (value.GetType() == MetaType::kStruct) {
    set.records.push_back(static_cast<const MetaStruct*>(&value));
    return set;
  }
  for (const auto& element : ElementsOf(value)) {
    set.records.push_back(static_cast<const MetaStruct*>(element.get()));
  }
  return set;
}

const MetaObject* ValueOf(const MetaStruct& record, const Column& column) {
  return record.GetField(column.name).get();
}

const std::vector<std::shared_ptr<MetaObject>>& ElementsOf(const MetaObject& list) {
  return static_cast<const MetaList&>(list).GetElements();
}

std::string PlainText(const MetaObject* value, std::string_view separator) {
  if (value == nullptr) return {};
  switch (value->GetType()) {
    case MetaType::kBool:
      return static_cast<const MetaObj::MetaBool*>(value)->GetValue() ? "true" : "false";
    case MetaType::kInt:
      return std::to_string(static_cast<const MetaObj::MetaInt*>(value)->GetValue());
    case MetaType::kString:
      return static_cast<const MetaObj::MetaString*>(value)->GetValue();
    default:
      break;
  }
  std::vector<std::string> parts;
  if (value->GetType() == MetaType::kList) {
    for (const auto& element : ElementsOf(*value)) {
      parts.push_back(PlainText(element.get(), separator));
    }
  } else {
    const auto& record = static_cast<const MetaStruct&>(*value);
    for (std::size_t field = 0; field < record.GetValues().size(); ++field) {
      parts.push_back(record.GetFieldNames()[field] + ": " +
                      PlainText(record.GetValues()[field].get(), separator));
    }
  }
  return BaseLibs::Join(parts, separator);
}

}  // namespace CliTools
