#include "store/Store.h"

#include <unistd.h>

#include <system_error>

#include "store/NewUuid.h"
#include "store/Schema.h"

namespace Lab {

namespace fs = std::filesystem;

namespace {

void MakeFolder(const fs::path& folder) {
  std::error_code error;
  if (!fs::exists(folder, error)) fs::create_directories(folder, error);
  if (error) {
    throw LabError("the lab's folder \"" + folder.string() +
                   "\" cannot be made: " + error.message());
  }
  if (!fs::is_directory(folder)) {
    throw LabError("the lab's folder \"" + folder.string() + "\" is not a folder");
  }
  if (access(folder.c_str(), R_OK | W_OK | X_OK) != 0) {
    throw LabError("the lab's folder \"" + folder.string() +
                   "\" cannot be used: " + std::generic_category().message(errno));
  }
}

std::int64_t ReadPragma(Database& database, const char* pragma) {
  Query query = database.Prepare(pragma);
  return query.Step() ? query.Int(0) : 0;
}

void CheckIsLab(Database& database, const fs::path& file) {
  if (ReadPragma(database, "PRAGMA application_id") != kApplicationId) {
    throw LabError("\"" + file.string() + "\" is not a lab's store");
  }
  const std::int64_t version = ReadPragma(database, "PRAGMA user_version");
  if (version > kSchemaVersion) {
    throw LabError("the lab's store \"" + file.string() +
                   "\" is from a newer version of autocli (" + std::to_string(version) +
                   "; this one knows " + std::to_string(kSchemaVersion) + ")");
  }
  if (database.IsReadOnly()) {
    throw LabError("the lab's store \"" + file.string() + "\" cannot be written");
  }
  // SQLite takes a page that is cut off for one that ends in zeros.
  const auto pageSize = static_cast<std::uintmax_t>(ReadPragma(database, "PRAGMA page_size"));
  if (pageSize == 0 || fs::file_size(file) % pageSize != 0) {
    throw LabError("the lab's store \"" + file.string() + "\" is damaged: its end is missing");
  }
}

}  // namespace

Store::Store(const fs::path& folder) : folder_(folder) {
  MakeFolder(folder_);
  const fs::path file = folder_ / "lab.db";
  if (!fs::exists(file)) Make(file);
  database_.emplace(file.string(), false);
  {
    const Transaction atRest(*this, Transaction::Kind::kRead);
    CheckIsLab(*database_, file);
  }
  database_->Execute("PRAGMA foreign_keys = ON");
}

void Store::Make(const fs::path& file) {
  // Made complete under another name and then given its own, so that nobody ever sees half a store.
  // Each step is taken by whoever holds the draft, if nobody else has taken it yet: it does not
  // matter how many processes make the store, or at which point one of them dies.
  const fs::path draft = file.string() + ".new";
  database_.emplace(draft.string(), true);
  try {
    while (!TakeStep(draft, file)) continue;
  } catch (const LabError&) {
    // A draft that was begun late is taken away under its maker's hands.
    if (!fs::exists(file)) throw;
  }
  database_.reset();
}

bool Store::TakeStep(const fs::path& draft, const fs::path& file) {
  Transaction transaction(*this, Transaction::Kind::kWrite);
  std::error_code error;
  if (fs::exists(file)) {
    fs::remove(draft, error);  // if there is one, it was begun when the store had its name already
    return true;
  }
  if (ReadPragma(*database_, "PRAGMA application_id") == kApplicationId) {
    fs::rename(draft, file, error);
    if (!error) return true;
    throw LabError("the lab's store \"" + file.string() + "\" cannot be made: " + error.message());
  }
  database_->Execute(kSchema);
  AddHost("host1");
  transaction.Commit();
  return false;
}

void Store::Reset() {
  database_->Execute("DELETE FROM members; DELETE FROM clusters; DELETE FROM hosts;");
  AddHost("host1");
}

Store::Transaction::Transaction(Store& store, Kind kind) : database_(*store.database_) {
  // A writer takes its place at the start: one that has read cannot be overtaken by another.
  database_.Run(kind == Kind::kWrite ? "BEGIN IMMEDIATE" : "BEGIN");
}

Store::Transaction::~Transaction() {
  if (!database_.IsInTransaction()) return;
  try {
    database_.Run("ROLLBACK");
  } catch (const LabError&) {  // then the next one to open the store undoes it
  }
}

void Store::Transaction::Commit() {
  database_.Run("COMMIT");
}

std::vector<FaultRow> Store::ListFaults() {
  Query query = database_->Prepare(
      "SELECT hosts.name, operation, message, remaining FROM faults JOIN hosts ON hosts.id = host "
      "ORDER BY faults.id");
  std::vector<FaultRow> rows;
  while (query.Step()) {
    rows.push_back({query.Text(0), query.Text(1), query.Text(2), query.Int(3)});
  }
  return rows;
}

std::vector<std::string> Store::ListFaultyOperations(std::int64_t host) {
  Query query = database_->Prepare("SELECT operation FROM faults WHERE host = ?", host);
  std::vector<std::string> operations;
  while (query.Step()) operations.push_back(query.Text(0));
  return operations;
}

void Store::AddFault(std::int64_t host, const FaultRow& fault) {
  database_->Run("INSERT INTO faults (host, operation, message, remaining) VALUES (?, ?, ?, ?)",
                 host, fault.operation, fault.message, fault.remaining);
}

void Store::ClearFaults() {
  database_->Run("DELETE FROM faults");
}

std::optional<std::string> Store::TakeFault(std::int64_t host, std::string_view operation) {
  std::int64_t id = 0;
  std::string message;
  {
    Query query = database_->Prepare(
        "SELECT id, message FROM faults WHERE host = ? AND operation = ? ORDER BY id LIMIT 1", host,
        operation);
    if (!query.Step()) return std::nullopt;
    id = query.Int(0);
    message = query.Text(1);
  }
  database_->Run("UPDATE faults SET remaining = remaining - 1 WHERE id = ?", id);
  database_->Run("DELETE FROM faults WHERE id = ? AND remaining <= 0", id);
  return message;
}

}  // namespace Lab
