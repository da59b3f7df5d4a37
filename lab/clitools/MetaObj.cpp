#include "platform/clitools/MetaObj.h"

#include <algorithm>
#include <map>

namespace CliTools::MetaObj {

MetaObject::~MetaObject() = default;

MetaString::MetaString(std::string value)
    : MetaObject(MetaType::kString), value_(std::move(value)) {}
// Strings and Booleans are immutable, so the most frequent ones are shared.
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

namespace {

/// The names of a record's fields. Successive records with the same fields in the same order share
/// them, so that a list of many keeps them once; a shared layout gets no further fields.
struct Layout {
  std::string structure;
  std::vector<std::string> fields;
  std::size_t next = 0;  ///< behind the field found last: most are used one after the other

  /// Returns the position of the field, or the number of fields if there is no such field.
  std::size_t Find(const std::string& field) {
    if (next >= fields.size() || fields[next] != field) {
      next = static_cast<std::size_t>(std::ranges::find(fields, field) - fields.begin());
    }
    return next++;
  }
};

/// By structure: the layout with which new records begin.
std::weak_ptr<Layout>& NewestLayout(const std::string& structure) {
  static auto& layouts = *new std::map<std::string, std::weak_ptr<Layout>>;
  return layouts[structure];
}

}  // namespace

struct MetaStruct::Body {
  std::shared_ptr<Layout> layout;  ///< the record has the first of its fields, one for each value
  std::vector<std::shared_ptr<MetaObject>> values;
};

MetaStruct::MetaStruct(const std::string& name)
    : MetaObject(MetaType::kStruct), body_(std::make_unique<Body>()) {
  auto& newest = NewestLayout(name);
  body_->layout = newest.lock();
  if (!body_->layout) newest = body_->layout = std::make_shared<Layout>(Layout{name, {}});
}
MetaStruct::~MetaStruct() = default;
// NOLINTNEXTLINE(performance-unnecessary-value-param): the platform declares it so
std::shared_ptr<MetaStruct> MetaStruct::New(std::string name) {
  return std::make_shared<MetaStruct>(name);
}

void MetaStruct::SetField(const std::string& field, std::shared_ptr<MetaObject> value) {
  auto& [layout, values] = *body_;
  const std::size_t position = layout->Find(field);
  if (position < values.size()) {
    values[position] = std::move(value);
    return;
  }
  if (position > values.size() || position == layout->fields.size()) {  // not the layout's next one
    if (values.size() < layout->fields.size() || layout.use_count() > 1) {
      const auto fields = GetFieldNames();
      layout = std::make_shared<Layout>(Layout{GetName(), {fields.begin(), fields.end()}});
      NewestLayout(GetName()) = layout;
    }
    layout->fields.push_back(field);
  }
  if (values.empty()) values.reserve(layout->fields.size());
  values.push_back(std::move(value));
}

void MetaStruct::SetField(const std::string& field, std::string value) {
  SetField(field, MetaString::New(std::move(value)));
}

void MetaStruct::SetField(const std::string& field, const char* value) {
  SetField(field, std::string(value));
}

const std::string& MetaStruct::GetName() const {
  return body_->layout->structure;
}

std::span<const std::string> MetaStruct::GetFieldNames() const {
  return {body_->layout->fields.data(), body_->values.size()};
}

const std::vector<std::shared_ptr<MetaObject>>& MetaStruct::GetValues() const {
  return body_->values;
}

std::shared_ptr<MetaObject> MetaStruct::GetField(const std::string& field) const {
  const std::size_t position = body_->layout->Find(field);
  return position < body_->values.size() ? body_->values[position] : nullptr;
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
