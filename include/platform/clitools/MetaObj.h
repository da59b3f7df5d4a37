// The framework's self-describing values, which commands return and formatters print.
//
// Values are shared and not synchronised: the framework and its commands use them on one thread.
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

/// Base of every value. Copies of a handle share the value.
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

/// A string: UTF-8 by convention, but any bytes, zero bytes included, are possible.
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

/// A Boolean; also the result of every command that only succeeds or fails.
class MetaBool : public MetaObject {
 public:
  static std::shared_ptr<MetaBool> New(bool value = false);
  explicit MetaBool(bool value);
  bool GetValue() const { return value_; }

 private:
  bool value_;
};

/// A record: named fields in the order in which they were first set. Commands set strings, numbers,
/// Booleans and lists of strings, never records.
class MetaStruct : public MetaObject {
 public:
  /// Returns a record without fields. `name` is the structure's, as in "fields:" + name.
  static std::shared_ptr<MetaStruct> New(std::string name);
  explicit MetaStruct(const std::string& name);
  ~MetaStruct() override;

  /// Replaces the field's value in its place, or appends the field if the record lacks it.
  /// The value is not null.
  void SetField(const std::string& field, std::shared_ptr<MetaObject> value);
  void SetField(const std::string& field, std::string value);
  void SetField(const std::string& field, const char* value);

  // Called only by the framework.

  const std::string& GetName() const;
  /// Valid until this record gets a further field.
  std::span<const std::string> GetFieldNames() const;
  /// Returns the fields' values, in the order of `GetFieldNames`.
  const std::vector<std::shared_ptr<MetaObject>>& GetValues() const;
  /// Null when there is no such field.
  std::shared_ptr<MetaObject> GetField(const std::string& field) const;

 private:
  struct Body;
  std::unique_ptr<Body> body_;
};

/// A list of strings or of records. Every element has the list's element type, and none is null; a
/// host may reject others.
class MetaList : public MetaObject {
 public:
  /// Returns an empty list of `elementType`, `kString` or `kStruct`. `elementTemplate`, a record
  /// with all fields of an element, each with an empty value of its type, shows formatters the
  /// fields even when the list is empty.
  static std::shared_ptr<MetaList> New(MetaType elementType,
                                       std::shared_ptr<MetaStruct> elementTemplate = nullptr);
  MetaList(MetaType elementType, std::shared_ptr<MetaStruct> elementTemplate);

  void Add(std::string value);
  void Add(std::shared_ptr<MetaStruct> value);
  /// Announces that the list will have `count` elements; has no other effect.
  void Reserve(std::size_t count);

  // Called only by the framework.

  MetaType GetElementType() const { return elementType_; }
  /// Null when the list was made without one.
  const std::shared_ptr<MetaStruct>& GetElementTemplate() const { return elementTemplate_; }
  const std::vector<std::shared_ptr<MetaObject>>& GetElements() const { return elements_; }

 private:
  MetaType elementType_;
  std::shared_ptr<MetaStruct> elementTemplate_;
  std::vector<std::shared_ptr<MetaObject>> elements_;
};

}  // namespace CliTools::MetaObj

#pragma GCC visibility pop
