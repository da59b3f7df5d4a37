#include "platform/clitools/MetaObj.h"

#include <algorithm>
#include <map>

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

const std::shared_ptr<MetaStruct::Layout>& MetaStruct::SharedLayout(const std::string& structure) {
  static auto& layouts = *new std::map<std::string, std::shared_ptr<Layout>>;
  auto& layout = layouts[structure];
  if (!layout) layout = std::make_shared<Layout>(Layout{structure, {}});
  return layout;
}

MetaStruct::MetaStruct(const std::string& name)
    : MetaObject(MetaType::kStruct), layout_(SharedLayout(name)) {}
// NOLINTNEXTLINE(performance-unnecessary-value-param): the platform declares it so
std::shared_ptr<MetaStruct> MetaStruct::New(std::string name) {
  return std::make_shared<MetaStruct>(name);
}

void MetaStruct::SetField(const std::string& field, std::shared_ptr<MetaObject> value) {
  const std::size_t position = PositionOf(field);
  if (position < values_.size()) {
    values_[position] = std::move(value);
  } else {
    if (values_.empty()) values_.reserve(layout_->fields.size());
    values_.push_back(std::move(value));
  }
  next_ = position + 1;
}

std::size_t MetaStruct::PositionOf(const std::string& field) {
  // Fields are mostly set one after the other, as the layout has them.
  if (next_ < layout_->fields.size() && layout_->fields[next_] == field) return next_;
  const auto fields = GetFieldNames();
  const auto known = std::ranges::find(fields, field);
  const auto position = static_cast<std::size_t>(known - fields.begin());
  if (known != fields.end()) return position;
  if (position < layout_->fields.size() && layout_->fields[position] == field) return position;
  if (position < layout_->fields.size()) {
    layout_ = std::make_shared<Layout>(Layout{GetName(), {fields.begin(), fields.end()}});
  }
  layout_->fields.push_back(field);  // nobody else has as many
  return position;
}

void MetaStruct::SetField(const std::string& field, std::string value) {
  SetField(field, MetaString::New(std::move(value)));
}

void MetaStruct::SetField(const std::string& field, const char* value) {
  SetField(field, std::string(value));
}

std::shared_ptr<MetaObject> MetaStruct::GetField(const std::string& field) const {
  const auto fields = GetFieldNames();
  const auto known = std::ranges::find(fields, field);
  return known == fields.end() ? nullptr
                               : values_[static_cast<std::size_t>(known - fields.begin())];
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
