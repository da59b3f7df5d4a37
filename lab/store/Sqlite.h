// SQLite with C++ lifetimes. Every failure of the database is thrown as `HostError`.
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

/// A statement while it runs: bound, stepped, and free for its next use when this object ends.
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
  int index_ = 0;
};

/// What the process waits for at this moment, to be shown to somebody who waits with it; empty if
/// it does not wait. May be called at any time, also by a signal's handler.
const char* WaitsFor();

/// What becomes of the journal with whose end a change is committed. Either way it is sure then to
/// outlast a loss of power.
enum class Journal {
  kDeleted,  ///< nothing is left beside the file
  kKept,     ///< takes less time: the file system has no file to make and to delete for each change
};

/// A connection. Statements are compiled once and kept.
class Database {
 public:
  /// In bytes.
  static std::size_t LongestPath();

  /// Opens an existing file. One that may not be written can be read.
  Database(const std::string& path, Journal journal);
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

  /// Throws the `HostError` of a file whose contents contradict each other.
  [[noreturn]] void FailDamaged(const std::string& what) const;

  /// Runs several statements at once, none of them with values.
  void Execute(const std::string& sql);

  /// Forgets what was read of the file, which may have been overwritten by another program than
  /// SQLite. False if it has to be opened anew: another file is at `path`, where this one was
  /// opened, it could only be read, or a transaction could not be ended.
  bool Renew(const std::filesystem::path& path);

  /// Begins a transaction that only reads.
  void BeginToRead();
  /// Begins one that may write. It waits for others here: one that has read cannot be overtaken.
  void BeginToWrite();
  bool IsInTransaction() const;

 private:
  Database(sqlite3* handle, Journal journal) : handle_(handle), journal_(journal) {}
  static int WaitForOthers(void* self, int pauses);
  sqlite3_stmt* Compile(std::string_view sql);

  sqlite3* handle_;
  Journal journal_;
  std::chrono::steady_clock::time_point waitsSince_;
  std::map<std::string, sqlite3_stmt*, std::less<>> statements_;
};

}  // namespace Lab
