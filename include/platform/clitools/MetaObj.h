// The framework's self-describing values: what a command hands back and a formatter prints.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#pragma GCC visibility push(default)

namespace CliTools::MetaObj {

/// The type of a value; also the element type given to `MetaList::New`.
enum class MetaType { kBool = 0, kInt = 1, kString = 2, kStruct = 3, kList = 4 };

/// Base of every value. Values are shared: who holds a handle sees later changes.
class MetaObject {
 public:
  virtual ~MetaObject();
  MetaObject(const MetaObject&) = delete;
  MetaObject& operator=(const MetaObject&) = delete;

  MetaType GetType() const { return type_; }

 protected:
  explicit MetaObject(MetaType type) : type_(type) {}

 private:
  MetaType type_;
};

/// A text: any bytes, though UTF-8 by convention.
class MetaString : public MetaObject {
 public:
  static std::shared_ptr<MetaString> New(std::string value = {});
  explicit MetaString(std::string value);
  const std::string& GetValue() const { return value_; }

 private:
  std::string value_;
};

/// A signed 64-bit number.
class MetaInt : public MetaObject {
 public:
  static std::shared_ptr<MetaInt> New(std::int64_t value = 0);
  explicit MetaInt(std::int64_t value);
  std::int64_t GetValue() const { return value_; }

 private:
  std::int64_t value_;
};

/// A truth value; also the result of every command that only succeeds or fails.
class MetaBool : public MetaObject {
 public:
  static std::shared_ptr<MetaBool> New(bool value = false);
  explicit MetaBool(bool value);
  bool GetValue() const { return value_; }

 private:
  bool value_;
};

/// A record: named fields in the order in which they were first set. Records of one name that set
/// the same fields in the same order share the names, so that a list of many keeps them once.
class MetaStruct : public MetaObject {
 public:
  /// An empty record; `name` is the key of its formatter parameters ("fields:" + name).
  static std::shared_ptr<MetaStruct> New(std::string name);
  explicit MetaStruct(const std::string& name);

  /// Replaces the field's value, or appends the field if the record does not have it yet.
  void SetField(const std::string& field, std::shared_ptr<MetaObject> value);
  void SetField(const std::string& field, std::string value);
  void SetField(const std::string& field, const char* value);

  const std::string& GetName() const { return layout_->structure; }
  /// Valid until a record of this name gets a further field.
  std::span<const std::string> GetFieldNames() const {
    return {layout_->fields.data(), values_.size()};
  }
  /// The fields' values, each where `GetFieldNames` has its name.
  const std::vector<std::shared_ptr<MetaObject>>& GetValues() const { return values_; }
  /// Whether a field that both have stands at the same position in both.
  bool SharesLayout(const MetaStruct& other) const { return layout_ == other.layout_; }
  /// The field's value; null if there is no such field.
  std::shared_ptr<MetaObject> GetField(const std::string& field) const;

 private:
  /// A record has the first of these fields, as many as it has values.
  struct Layout {
    std::string structure;
    std::vector<std::string> fields;
  };
  static const std::shared_ptr<Layout>& SharedLayout(const std::string& structure);
  /// Where the field's value is, or is to be appended: then the layout has the name already.
  std::size_t PositionOf(const std::string& field);

  std::shared_ptr<Layout> layout_;
  std::size_t next_ = 0;  ///< the position behind that of the field set last
  std::vector<std::shared_ptr<MetaObject>> values_;
};

/// A list of texts or of records.
class MetaList : public MetaObject {
 public:
  /// An empty list of `elementType` (`kString` or `kStruct`). `elementTemplate` shows formatters
  /// the fields of an element even when the list is empty.
  static std::shared_ptr<MetaList> New(MetaType elementType,
                                       std::shared_ptr<MetaStruct> elementTemplate = nullptr);
  MetaList(MetaType elementType, std::shared_ptr<MetaStruct> elementTemplate);

  void Add(std::string value);
  void Add(std::shared_ptr<MetaStruct> value);
  void Reserve(std::size_t count);

  MetaType GetElementType() const { return elementType_; }
  /// Null if the list was made without one.
  const std::shared_ptr<MetaStruct>& GetElementTemplate() const { return elementTemplate_; }
  const std::vector<std::shared_ptr<MetaObject>>& GetElements() const { return elements_; }

 private:
  MetaType elementType_;
  std::shared_ptr<MetaStruct> elementTemplate_;
  std::vector<std::shared_ptr<MetaObject>> elements_;
};

}  // namespace CliTools::MetaObj

#pragma GCC visibility pop
