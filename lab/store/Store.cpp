#include "store/Store.h"

#include <system_error>

#include "baselibs/HostError.h"
#include "store/LabDirectory.h"
#include "store/Schema.h"
#include "store/Uuids.h"

namespace Lab {

namespace fs = std::filesystem;
using BaseLibs::HostError;

namespace {

std::int64_t ReadPragma(Database& database, const char* pragma) {
  Query query = database.Prepare(pragma);
  return query.Step() ? query.Int(0) : 0;
}

}  // namespace

// Absolute, because SQLite parses a relative "file:..." as a URI.
Store::Store(const fs::path& directory, const NewLab& newLab)
    : directory_(fs::absolute(directory)) {
  if ((directory_ / kStoreDraft).native().size() > Database::LongestPath()) {
    throw HostError("the lab's directory \"" + directory_.string() +
                    "\" cannot be used: its path is too long");
  }
  std::error_code ignored;
  const bool isNew = !fs::exists(fs::symlink_status(GetFile(), ignored));
  if (isNew) PrepareLabDirectory(directory_);
  RequireTrust();
  if (isNew) Make(newLab);
  database_.emplace(GetFile().string(), Mode::kOpen);
  Check();
}

bool Store::IsCurrent() {
  if (!database_->Renew(GetFile())) return false;
  RequireTrust();
  Check();
  return true;
}

fs::path Store::GetFile() const {
  return directory_ / kStoreFile;
}

void Store::RequireTrust() const {
  RequireOwn(directory_);
  for (const char* const name : {kStoreFile, kStoreJournal, kHostsDirectory})
    RequireOwn(directory_ / name);
}

void Store::Check() {
  const fs::path file = GetFile();
  Transaction atRest(*this, Transaction::Kind::kRead);
  if (ReadPragma(*database_, "PRAGMA application_id") != kApplicationId) {
    throw HostError("\"" + file.string() + "\" is not a lab's store");
  }
  const std::int64_t version = ReadPragma(*database_, "PRAGMA user_version");
  if (version != kSchemaVersion) {
    throw HostError("the lab's store \"" + file.string() + "\" is from " +
                    (version > kSchemaVersion ? "a newer" : "an older") + " version of autocli (" +
                    std::to_string(version) + "; this one knows " + std::to_string(kSchemaVersion) +
                    ")");
  }
  // SQLite reads a truncated page as one that ends in zeros.
  const auto pageSize = static_cast<std::uintmax_t>(ReadPragma(*database_, "PRAGMA page_size"));
  if (pageSize == 0 || fs::file_size(file) % pageSize != 0) {
    throw HostError("the lab's store \"" + file.string() + "\" is damaged: its end is missing");
  }
  atRest.Commit();
}

void Store::Make(const NewLab& newLab) {
  // The store is completed as a draft and then renamed, so that no process sees half a store. Each
  // step is a transaction on the draft, so that several processes may make the store, or die
  // meanwhile.
  const std::string draft = directory_ / kStoreDraft;
  RequireOwn(draft);
  try {
    database_.emplace(draft, Mode::kCreate);
    while (!TakeStep(newLab)) continue;
  } catch (const HostError&) {
    // Another process may have finished the store and removed our draft.
    if (!fs::exists(GetFile())) throw;
  }
  database_.reset();
}

bool Store::TakeStep(const NewLab& newLab) {
  const fs::path file = GetFile();
  Transaction transaction(*this, Transaction::Kind::kWrite);
  std::error_code error;
  if (fs::exists(fs::symlink_status(file))) {
    // A draft that still exists was begun after the store was complete.
    fs::remove(directory_ / kStoreDraft, error);
    return true;
  }
  if (fs::file_size(directory_ / kStoreDraft, error) == 0) {
    database_->Execute("PRAGMA application_id = " + std::to_string(kApplicationId));
    database_->Execute(CreateTables());
    Save(LabRow{NewUuid()});
  } else if (ReadPragma(*database_, "PRAGMA application_id") != kApplicationId) {
    throw HostError("\"" + (directory_ / kStoreDraft).string() +
                    "\" is in the way, and the lab did not make it");
  } else if (ReadPragma(*database_, "PRAGMA user_version") == 0) {
    newLab.fill(*this);
    database_->Execute("PRAGMA user_version = " + std::to_string(kSchemaVersion));
  } else {
    newLab.settle(*this);
    fs::rename(directory_ / kStoreDraft, file, error);
    if (!error) {
      SyncDirectory(directory_);
      return true;
    }
    throw HostError("the lab's store \"" + file.string() + "\" cannot be made: " + error.message());
  }
  transaction.Commit();
  return false;
}

std::string Store::GetLabUuid() {
  const auto labs = List<LabRow>();
  if (labs.empty()) FailDamaged("it has no name");
  return labs.front().uuid;
}

void Store::Clear() {
  database_->Execute("DELETE FROM members; DELETE FROM clusters; DELETE FROM hosts;");
}

std::optional<HostRow> Store::FindHost(std::string_view name) {
  return SelectOne<HostRow>(" WHERE name = ?", name);
}

std::vector<MemberRow> Store::ListPeers(std::int64_t host) {
  return Select<MemberRow>(
      " WHERE cluster = (SELECT cluster FROM members WHERE host = ?) ORDER BY join_order", host);
}

bool Store::IsIsolated(std::int64_t host) {
  Query query = database_->Prepare("SELECT max(running) = 0 FROM knics WHERE host = ?", host);
  return query.Step() && query.Int(0) != 0;  // no interfaces: NULL, read as 0
}

void Store::SetKnicsRunning(std::int64_t host, bool running) {
  database_->Run("UPDATE knics SET running = ? WHERE host = ?", running, host);
}

DiskCount Store::CountDisks(std::int64_t host) {
  Query query = database_->Prepare(
      "SELECT total(NOT failed AND NOT unplugged), total(failed OR unplugged) FROM disks"
      " WHERE host = ? AND NOT (unplugged AND uuid IS NULL)",
      host);
  query.Step();
  return {query.Int(0), query.Int(1)};
}

std::vector<DiskRow> Store::ListClaimedDisks(std::int64_t host) {
  return Select<DiskRow>(" WHERE host = ? AND uuid IS NOT NULL", host);
}

std::vector<DiskRow> Store::ListGroup(std::int64_t host, std::string_view group) {
  return Select<DiskRow>(" WHERE host = ? AND disk_group = ? ORDER BY rowid", host, group);
}

std::optional<DiskRow> Store::FindDisk(std::string_view uuid) {
  return SelectOne<DiskRow>(" WHERE uuid = ?", uuid);
}

Store::Transaction::Transaction(Store& store, Kind kind) : database_(*store.database_) {
  kind == Kind::kWrite ? database_.BeginToWrite() : database_.BeginToRead();
}

Store::Transaction::~Transaction() {
  if (!database_.IsInTransaction()) return;
  try {
    database_.Run("ROLLBACK");
  } catch (const HostError&) {  // the next process that opens the store rolls it back
  }
}

void Store::Transaction::Commit() {
  database_.Run("COMMIT");
}

}  // namespace Lab
