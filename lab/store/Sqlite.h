// SQLite with C++ lifetimes. Every failure is thrown as `HostError`. SQLite runs without mutexes:
// only one thread of the process may use these classes, but for `WaitsFor`.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace Lab {

/// A running statement. Its destructor resets it for the next use.
class Query {
 public:
  /// Binds `values` to the statement's parameters, in order.
  template <class... Values>
  explicit Query(sqlite3_stmt* statement, const Values&... values) : statement_(statement) {
    (Bind(values), ...);
  }
  ~Query();
  Query(const Query&) = delete;
  Query& operator=(const Query&) = delete;

  /// Binds the value to the next parameter.
  void Bind(std::int64_t value);
  void Bind(std::string_view value);

  /// Moves to the next row. False after the last row.
  bool Step();

  std::int64_t Int(int column) const;
  std::string Text(int column) const;
  // Reads the column as the type of `value`.
  void Read(int column, std::int64_t& value) const { value = Int(column); }
  void Read(int column, bool& value) const { value = Int(column) != 0; }
  void Read(int column, std::string& value) const { value = Text(column); }

 private:
  sqlite3_stmt* statement_;
  int index_ = 0;
};

/// Returns what the process waits for; empty if it does not wait. Safe in a signal handler.
const char* WaitsFor();

enum class Mode {
  kCreate,  ///< creates the file if it does not exist, and deletes the journal after each change
  kOpen,    ///< opens an existing file, and keeps the journal: faster changes
};

/// A connection that keeps its compiled statements.
class Database {
 public:
  /// Returns the length of the longest path that can be opened, in bytes.
  static std::size_t LongestPath();

  /// A file that cannot be written is opened for reading only.
  Database(const std::string& path, Mode mode);
  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  /// Compiles `sql` and binds `values` in order. Only one `Query` of the same `sql` at a time.
  template <class... Values>
  Query Prepare(std::string_view sql, const Values&... values) {
    return Query(Compile(sql), values...);
  }

  /// Runs a statement whose row, if any, does not matter.
  template <class... Values>
  void Run(std::string_view sql, const Values&... values) {
    Prepare(sql, values...).Step();
  }

  /// Throws `HostError`: the file is damaged.
  [[noreturn]] void FailDamaged(const std::string& what) const;

  /// Runs several statements without parameters.
  void Execute(const std::string& sql);

  /// Drops the page cache, since programs other than SQLite may have written the file. False when
  /// the file must be opened anew: another file is at `path`, the file was opened for reading only,
  /// or a transaction could not be ended.
  bool Renew(const std::filesystem::path& path);

  void BeginToRead();
  /// Waits for other writers first, so that what the transaction reads stays true until it writes.
  void BeginToWrite();
  bool IsInTransaction() const;

 private:
  Database(sqlite3* handle, Mode mode) : handle_(handle), mode_(mode) {}
  static int WaitForOthers(void* self, int pauses);
  sqlite3_stmt* Compile(std::string_view sql);

  sqlite3* handle_;
  Mode mode_;
  std::chrono::steady_clock::time_point waitsSince_;
  std::map<std::string, sqlite3_stmt*, std::less<>> statements_;
};

}  // namespace Lab
