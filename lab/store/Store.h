// The lab's store: one SQLite file that holds all hosts and clusters of a lab. It keeps rows and
// their integrity; what may be done to them is decided by those who call it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/Schema.h"
#include "store/Sqlite.h"
#include "store/Table.h"

namespace Lab {

class Store;

/// What a new lab is to hold besides its tables.
struct NewLab {
  std::function<void(Store&)> fill;    ///< makes the first hosts
  std::function<void(Store&)> settle;  ///< what is left to do once they are sure to be there
};

class Store {
 public:
  /// Opens the lab in `directory`, which is made if it is not there yet. Throws `HostError` when
  /// the directory or what is in it cannot serve as a lab; nothing is changed then.
  Store(const std::filesystem::path& directory, const NewLab& newLab);

  /// Whether this is still what opening it anew would lead to. Throws `HostError` where that would.
  bool IsCurrent();

  const std::filesystem::path& GetDirectory() const { return directory_; }

  /// Throws the `HostError` of a store whose rows contradict each other.
  [[noreturn]] void FailDamaged(const std::string& what) { database_->FailDamaged(what); }

  /// Writes the row in place of the row with its key, if there is one. Otherwise adds it; an id of
  /// 0 is replaced by a new one.
  template <class Row>
  void Save(const Row& row) {
    Lab::Save(*database_, row);
  }
  /// Returns the row with this key, which is as long as `Table<Row>::kKey`.
  template <class Row, class... Key>
  std::optional<Row> Find(const Key&... key) {
    return Lab::Find<Row>(*database_, key...);
  }
  /// Returns the rows of one owner (`Table<Row>::kOwner`), or all rows, in the order of the table.
  template <class Row, class... Owner>
  std::vector<Row> List(const Owner&... owner) {
    return Lab::List<Row>(*database_, owner...);
  }
  /// Whether the owner has any such row.
  template <class Row, class Owner>
  bool Has(const Owner& owner) {
    return Lab::Has<Row>(*database_, owner);
  }
  /// Removes the row with this key, and the rows that belong to it.
  template <class Row, class... Key>
  void Remove(const Key&... key) {
    Lab::Remove<Row>(*database_, key...);
  }
  /// Removes all rows of one owner.
  template <class Row, class Owner>
  void RemoveAll(const Owner& owner) {
    Lab::RemoveAll<Row>(*database_, owner);
  }

  /// Made with the lab, and kept by its copies.
  std::string GetLabUuid();
  /// Removes every host and cluster.
  void Clear();

  std::optional<HostRow> FindHost(std::string_view name);
  /// Returns the members of the cluster that the host is in, itself among them.
  std::vector<MemberRow> ListPeers(std::int64_t host);
  /// Puts every persisted interface into effect, or out of it.
  void SetKnicsRunning(std::int64_t host, bool running);
  /// Returns the disks of all hosts that are in use, in the order of their UUIDs.
  std::vector<DiskRow> ListClaimedDisks();
  /// Returns the disks of a group, its cache device among them.
  std::vector<DiskRow> ListGroup(std::int64_t host, std::string_view group);
  std::optional<DiskRow> FindDisk(std::string_view uuid);

  /// A transaction: it is undone unless it is committed.
  class Transaction {
   public:
    enum class Kind { kRead, kWrite };
    Transaction(Store& store, Kind kind);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void Commit();

   private:
    Database& database_;
  };

 private:
  std::filesystem::path GetFile() const;
  void RequireTrust() const;
  /// Throws `HostError` if the file that was opened is not a store that can be used.
  void Check();
  void Make(const NewLab& newLab);
  /// Brings the store in the making one step further; returns whether it was the last.
  bool TakeStep(const NewLab& newLab);

  std::filesystem::path directory_;
  std::optional<Database> database_;
};

}  // namespace Lab
