// SQLite with C++ lifetimes. Every failure of the database is thrown as `LabError`.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>

struct sqlite3;
struct sqlite3_stmt;

namespace Lab {

/// The lab cannot be used: its folder, its store or the chosen host is not what it must be. The
/// text names what and why.
class LabError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A statement while it runs: bound, stepped, and free for its next use when this object ends.
class Query {
 public:
  /// Binds `values` to the statement's places, in order.
  template <class... Values>
  explicit Query(sqlite3_stmt* statement, const Values&... values) : statement_(statement) {
    int place = 0;
    (Bind(++place, values), ...);
  }
  ~Query();
  Query(const Query&) = delete;
  Query& operator=(const Query&) = delete;

  /// Moves to the next row; false after the last one.
  bool Step();
  std::int64_t Int(int column) const;
  bool Bool(int column) const { return Int(column) != 0; }
  std::string Text(int column) const;

 private:
  void Bind(int place, std::int64_t value);
  void Bind(int place, std::string_view value);

  sqlite3_stmt* statement_;
};

/// A connection. Statements are compiled once and kept.
class Database {
 public:
  /// Opens an existing file; with `create`, makes it.
  Database(const std::string& path, bool create);
  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  /// Compiles `sql`, which must outlive the database, and binds `values` in order.
  template <class... Values>
  Query Prepare(const char* sql, const Values&... values) {
    return Query(Compile(sql), values...);
  }

  /// Runs a statement that yields no rows.
  template <class... Values>
  void Run(const char* sql, const Values&... values) {
    Prepare(sql, values...).Step();
  }

  /// Runs several statements at once, none of them with values.
  void Execute(const char* sql);

  /// How many rows the last statement changed.
  int Changes() const;
  std::int64_t LastRowId() const;
  bool IsReadOnly() const;
  bool IsInTransaction() const;

 private:
  sqlite3_stmt* Compile(const char* sql);

  sqlite3* handle_ = nullptr;
  std::unordered_map<const char*, sqlite3_stmt*> statements_;
};

}  // namespace Lab
