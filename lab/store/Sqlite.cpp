#include "store/Sqlite.h"

#include <sqlite3.h>

#include <chrono>
#include <system_error>
#include <thread>

namespace Lab {

namespace {

// Whoever waits for others looks again after a pause that never grows: with growing pauses the
// store lies idle while all sleep, and those who came last overtake those who have waited longest.
constexpr std::chrono::milliseconds kPause(1);
// Long enough for any queue of commands; whoever waits longer has met a process that hangs.
constexpr int kMostPauses = 60000;

int WaitForOthers(void*, int pauses) {
  if (pauses >= kMostPauses) return 0;
  std::this_thread::sleep_for(kPause);
  return 1;
}

/// What went wrong, and where the system refused to open, read or write, why it did.
std::string Reason(sqlite3* handle) {
  std::string reason = sqlite3_errmsg(handle);
  const int code = sqlite3_errcode(handle) & 0xFF;
  if (code != SQLITE_IOERR && code != SQLITE_CANTOPEN) return reason;
  int error = sqlite3_system_errno(handle);
  if (error == 0) sqlite3_file_control(handle, "main", SQLITE_FCNTL_LAST_ERRNO, &error);
  return error == 0 ? reason : reason + " (" + std::generic_category().message(error) + ")";
}

[[noreturn]] void Fail(sqlite3* handle) {
  const char* const file = sqlite3_db_filename(handle, "main");
  const std::string store = file == nullptr ? "the lab's store" : std::string(file);
  switch (sqlite3_errcode(handle) & 0xFF) {
    case SQLITE_NOTADB:
      throw LabError("\"" + store + "\" is not a lab's store");
    case SQLITE_CORRUPT:
      throw LabError("the lab's store \"" + store + "\" is damaged: " + sqlite3_errmsg(handle));
    case SQLITE_BUSY:
      throw LabError("the lab's store \"" + store + "\" is held by another process");
    case SQLITE_FULL:
      throw LabError("no space is left to write the lab's store \"" + store + "\"");
    default:
      throw LabError("the lab's store \"" + store + "\" cannot be used: " + Reason(handle));
  }
}

}  // namespace

Query::~Query() {
  sqlite3_reset(statement_);
  sqlite3_clear_bindings(statement_);
}

void Query::Bind(int place, std::int64_t value) {
  if (sqlite3_bind_int64(statement_, place, value) != SQLITE_OK) {
    Fail(sqlite3_db_handle(statement_));
  }
}

void Query::Bind(int place, std::string_view value) {
  if (sqlite3_bind_text64(statement_, place, value.data(), value.size(), SQLITE_TRANSIENT,
                          SQLITE_UTF8) != SQLITE_OK) {
    Fail(sqlite3_db_handle(statement_));
  }
}

bool Query::Step() {
  switch (sqlite3_step(statement_)) {
    case SQLITE_ROW:
      return true;
    case SQLITE_DONE:
      return false;
    default:
      Fail(sqlite3_db_handle(statement_));
  }
}

std::int64_t Query::Int(int column) const {
  return sqlite3_column_int64(statement_, column);
}

std::string Query::Text(int column) const {
  const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
  return text == nullptr
             ? std::string()
             : std::string(text,
                           static_cast<std::size_t>(sqlite3_column_bytes(statement_, column)));
}

Database::Database(const std::string& path, bool create) {
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | (create ? SQLITE_OPEN_CREATE : 0);
  if (sqlite3_open_v2(path.c_str(), &handle_, flags, nullptr) != SQLITE_OK) {
    const std::string reason = Reason(handle_);
    sqlite3_close(handle_);
    throw LabError("the lab's store \"" + path + "\" cannot be opened: " + reason);
  }
  sqlite3_busy_handler(handle_, WaitForOthers, nullptr);
}

Database::~Database() {
  for (const auto& [sql, statement] : statements_) sqlite3_finalize(statement);
  sqlite3_close(handle_);
}

void Database::Execute(const char* sql) {
  if (sqlite3_exec(handle_, sql, nullptr, nullptr, nullptr) != SQLITE_OK) Fail(handle_);
}

int Database::Changes() const {
  return sqlite3_changes(handle_);
}
std::int64_t Database::LastRowId() const {
  return sqlite3_last_insert_rowid(handle_);
}
bool Database::IsReadOnly() const {
  return sqlite3_db_readonly(handle_, "main") != 0;
}
bool Database::IsInTransaction() const {
  return sqlite3_get_autocommit(handle_) == 0;
}

sqlite3_stmt* Database::Compile(const char* sql) {
  sqlite3_stmt*& statement = statements_[sql];
  if (statement == nullptr && sqlite3_prepare_v3(handle_, sql, -1, SQLITE_PREPARE_PERSISTENT,
                                                 &statement, nullptr) != SQLITE_OK) {
    Fail(handle_);
  }
  return statement;
}

}  // namespace Lab
