#include "platform/clitools/MetaObj.h"

#include <algorithm>

namespace CliTools::MetaObj {

MetaObject::~MetaObject() = default;

MetaString::MetaString(std::string value)
    : MetaObject(MetaType::kString), value_(std::move(value)) {}
// Values never change, so those that make up most of a record are made only once.
std::shared_ptr<MetaString> MetaString::New(std::string value) {
  static const auto empty = std::make_shared<MetaString>(std::string());
  if (value.empty()) return empty;
  return std::make_shared<MetaString>(std::move(value));
}

MetaInt::MetaInt(std::int64_t value) : MetaObject(MetaType::kInt), value_(value) {}
std::shared_ptr<MetaInt> MetaInt::New(std::int64_t value) {
  return std::make_shared<MetaInt>(value);
}

MetaBool::MetaBool(bool value) : MetaObject(MetaType::kBool), value_(value) {}
std::shared_ptr<MetaBool> MetaBool::New(bool value) {
  static const auto yes = std::make_shared<MetaBool>(true);
  static const auto no = std::make_shared<MetaBool>(false);
  return value ? yes : no;
}

MetaStruct::MetaStruct(std::string name) : MetaObject(MetaType::kStruct), name_(std::move(name)) {}
std::shared_ptr<MetaStruct> MetaStruct::New(std::string name) {
  return std::make_shared<MetaStruct>(std::move(name));
}

void MetaStruct::SetField(const std::string& field, std::shared_ptr<MetaObject> value) {
  const auto known = std::ranges::find(fields_, field, &Field::first);
  if (known != fields_.end()) {
    known->second = std::move(value);
  } else {
    fields_.emplace_back(field, std::move(value));
  }
}

void MetaStruct::SetField(const std::string& field, std::string value) {
  SetField(field, MetaString::New(std::move(value)));
}

void MetaStruct::SetField(const std::string& field, const char* value) {
  SetField(field, std::string(value));
}

std::shared_ptr<MetaObject> MetaStruct::GetField(const std::string& field) const {
  const auto known = std::ranges::find(fields_, field, &Field::first);
  return known == fields_.end() ? nullptr : known->second;
}

MetaList::MetaList(MetaType elementType, std::shared_ptr<MetaStruct> elementTemplate)
    : MetaObject(MetaType::kList),
      elementType_(elementType),
      elementTemplate_(std::move(elementTemplate)) {}
std::shared_ptr<MetaList> MetaList::New(MetaType elementType,
                                        std::shared_ptr<MetaStruct> elementTemplate) {
  return std::make_shared<MetaList>(elementType, std::move(elementTemplate));
}

void MetaList::Add(std::string value) {
  elements_.push_back(MetaString::New(std::move(value)));
}
void MetaList::Add(std::shared_ptr<MetaStruct> value) {
  elements_.push_back(std::move(value));
}
void MetaList::Reserve(std::size_t count) {
  elements_.reserve(count);
}

}  // namespace CliTools::MetaObj
