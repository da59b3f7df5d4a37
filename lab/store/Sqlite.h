// SQLite with C++ lifetimes. Every failure of the database is thrown as `LabError`.
#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace Lab {

/// A statement while it runs: bound, stepped, and free for its next use when this object ends.
class Query {
 public:
  /// Binds `values` to the statement's places, in order.
  template <class... Values>
  explicit Query(sqlite3_stmt* statement, const Values&... values) : statement_(statement) {
    (Bind(values), ...);
  }
  ~Query();
  Query(const Query&) = delete;
  Query& operator=(const Query&) = delete;

  /// Binds the value to the next place.
  void Bind(std::int64_t value);
  void Bind(std::string_view value);

  /// Moves to the next row; false after the last one.
  bool Step();

  std::int64_t Int(int column) const;
  std::string Text(int column) const;
  /// The same into a value of the column's type.
  void Read(int column, std::int64_t& value) const { value = Int(column); }
  void Read(int column, bool& value) const { value = Int(column) != 0; }
  void Read(int column, std::string& value) const { value = Text(column); }

 private:
  sqlite3_stmt* statement_;
  int place_ = 0;
};

/// What the process waits for at this moment, to be shown to somebody who waits with it; empty if
/// it does not wait. May be called at any time, also by a signal's handler.
const char* WaitsFor();

/// A connection. Statements are compiled once and kept.
class Database {
 public:
  /// In bytes.
  static std::size_t LongestPath();

  /// Opens an existing file. One that may not be written can be read.
  explicit Database(const std::string& path);
  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  /// Compiles `sql` and binds `values` in order.
  template <class... Values>
  Query Prepare(std::string_view sql, const Values&... values) {
    return Query(Compile(sql), values...);
  }

  /// Runs a statement that yields no rows.
  template <class... Values>
  void Run(std::string_view sql, const Values&... values) {
    Prepare(sql, values...).Step();
  }

  /// Runs several statements at once, none of them with values.
  void Execute(const std::string& sql);

  bool IsInTransaction() const;

 private:
  explicit Database(sqlite3* handle) : handle_(handle) {}
  static int WaitForOthers(void* self, int pauses);
  sqlite3_stmt* Compile(std::string_view sql);

  sqlite3* handle_;
  std::chrono::steady_clock::time_point waitsSince_;
  std::map<std::string, sqlite3_stmt*, std::less<>> statements_;
};

}  // namespace Lab
