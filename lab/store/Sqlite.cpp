#include "store/Sqlite.h"

#include <sqlite3.h>

#include <atomic>
#include <chrono>
#include <system_error>
#include <thread>
#include <utility>

#include "baselibs/HostError.h"

namespace Lab {

using BaseLibs::HostError;

namespace {

// Poll at a fixed interval. Growing delays leave the store idle and starve the longest waiters.
constexpr std::chrono::microseconds kPause(1000);
// A commit waits for readers, which are quick, while all other writers wait for the commit.
constexpr std::chrono::microseconds kPauseForReaders(100);
// Longer than any queue of commands takes: assume that the lock's holder hangs.
constexpr std::chrono::seconds kLongestWait(60);

std::atomic<const char*> waitsFor = "";

/// Turns off SQLite's mutexes and its count of memory in use. Works only before SQLite is first
/// used.
void Configure() {
  static bool isConfigured = false;
  if (std::exchange(isConfigured, true)) return;
  sqlite3_config(SQLITE_CONFIG_SINGLETHREAD);
  sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
}

/// Returns SQLite's message and, when a file cannot be opened, read or written, the system's.
std::string Reason(sqlite3* handle) {
  std::string reason = sqlite3_errmsg(handle);
  const int code = sqlite3_errcode(handle) & 0xFF;
  if (code != SQLITE_IOERR && code != SQLITE_CANTOPEN) return reason;
  int error = sqlite3_system_errno(handle);
  if (error == 0) sqlite3_file_control(handle, "main", SQLITE_FCNTL_LAST_ERRNO, &error);
  return error == 0 ? reason : reason + " (" + std::generic_category().message(error) + ")";
}

[[noreturn]] void Fail(sqlite3* handle) {
  const std::string store = sqlite3_db_filename(handle, "main");
  switch (sqlite3_errcode(handle) & 0xFF) {
    case SQLITE_NOTADB:
      throw HostError("\"" + store + "\" is not a lab's store");
    case SQLITE_CORRUPT:
    case SQLITE_CONSTRAINT:  // the rules refuse before a constraint fails
      throw HostError("the lab's store \"" + store + "\" is damaged: " + sqlite3_errmsg(handle));
    case SQLITE_BUSY:
      throw HostError("the lab's store \"" + store + "\" is held by another process");
    case SQLITE_READONLY:
      throw HostError("the lab's store \"" + store + "\" cannot be written");
    case SQLITE_FULL:
      throw HostError("no space is left to write the lab's store \"" + store + "\"");
    default:
      throw HostError("the lab's store \"" + store + "\" cannot be used: " + Reason(handle));
  }
}

sqlite3* Open(const std::string& path, Mode mode) {
  Configure();
  sqlite3* handle = nullptr;
  const int create = mode == Mode::kCreate ? SQLITE_OPEN_CREATE : 0;
  if (sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | create,
                      nullptr) != SQLITE_OK) {
    const std::string reason = Reason(handle);
    sqlite3_close(handle);
    throw HostError("the lab's store \"" + path + "\" cannot be opened: " + reason);
  }
  return handle;
}

}  // namespace

Query::~Query() {
  sqlite3_reset(statement_);
  sqlite3_clear_bindings(statement_);
}

void Query::Bind(std::int64_t value) {
  if (sqlite3_bind_int64(statement_, ++index_, value) != SQLITE_OK) {
    Fail(sqlite3_db_handle(statement_));
  }
}

void Query::Bind(std::string_view value) {
  if (sqlite3_bind_text64(statement_, ++index_, value.data(), value.size(), SQLITE_TRANSIENT,
                          SQLITE_UTF8) != SQLITE_OK) {
    Fail(sqlite3_db_handle(statement_));
  }
}

bool Query::Step() {
  const int result = sqlite3_step(statement_);
  waitsFor = "";
  switch (result) {
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

const char* WaitsFor() {
  return waitsFor;
}

int Database::WaitForOthers(void* self, int pauses) {
  const auto now = std::chrono::steady_clock::now();
  auto* const database = static_cast<Database*>(self);
  if (pauses == 0) database->waitsSince_ = now;
  if (now - database->waitsSince_ >= kLongestWait) return 0;
  waitsFor = "waits for another process";
  const bool commits = sqlite3_txn_state(database->handle_, "main") == SQLITE_TXN_WRITE;
  std::this_thread::sleep_for(commits ? kPauseForReaders : kPause);
  return 1;
}

std::size_t Database::LongestPath() {
  Configure();
  constexpr std::string_view kSuffix = "-journal";
  return static_cast<std::size_t>(sqlite3_vfs_find(nullptr)->mxPathname) - kSuffix.size();
}

Database::Database(const std::string& path, Mode mode) : Database(Open(path, mode), mode) {
  sqlite3_busy_handler(handle_, WaitForOthers, this);
  sqlite3_db_config(handle_, SQLITE_DBCONFIG_ENABLE_FKEY, 1, nullptr);
}

Database::~Database() {
  for (const auto& [sql, statement] : statements_) sqlite3_finalize(statement);
  sqlite3_close(handle_);
}

void Database::FailDamaged(const std::string& what) const {
  throw HostError(std::string("the lab's store \"") + sqlite3_db_filename(handle_, "main") +
                  "\" is damaged: " + what);
}

void Database::Execute(const std::string& sql) {
  if (sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) Fail(handle_);
}

bool Database::Renew(const std::filesystem::path& path) {
  sqlite3_db_release_memory(handle_);
  int hasMoved = 0;
  sqlite3_file_control(handle_, "main", SQLITE_FCNTL_HAS_MOVED, &hasMoved);
  // SQLite names the file without the symlinks on its path, which may lead elsewhere by now.
  std::error_code ignored;
  return hasMoved == 0 &&
         std::filesystem::equivalent(path, sqlite3_db_filename(handle_, "main"), ignored) &&
         sqlite3_db_readonly(handle_, "main") == 0 && !IsInTransaction();
}

void Database::BeginToRead() {
  Run("BEGIN");
}

void Database::BeginToWrite() {
  // Not on opening, since most commands only read. EXTRA syncs the directory of a deleted journal.
  Run(mode_ == Mode::kOpen ? "PRAGMA journal_mode = PERSIST" : "PRAGMA synchronous = EXTRA");
  Run("BEGIN IMMEDIATE");
}

bool Database::IsInTransaction() const {
  return sqlite3_get_autocommit(handle_) == 0;
}

sqlite3_stmt* Database::Compile(std::string_view sql) {
  if (const auto known = statements_.find(sql); known != statements_.end()) return known->second;
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v3(handle_, sql.data(), static_cast<int>(sql.size()),
                         SQLITE_PREPARE_PERSISTENT, &statement, nullptr) != SQLITE_OK) {
    Fail(handle_);
  }
  statements_.emplace(sql, statement);
  return statement;
}

}  // namespace Lab
