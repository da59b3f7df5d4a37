// The lab's store: one SQLite file that holds all hosts and clusters of a lab. It keeps rows and
// their integrity; its callers decide what may be done to them.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "store/Schema.h"
#include "store/Sqlite.h"

namespace Lab {

class Store;

/// Callbacks that complete a new lab.
struct NewLab {
  std::function<void(Store&)> fill;    ///< adds the first host
  std::function<void(Store&)> settle;  ///< runs after its commit; may run again
};

struct DiskCount {
  std::int64_t ok = 0;
  std::int64_t failed = 0;
};

class Store {
 public:
  /// Opens the lab in `directory`, and makes it first if it does not exist. Throws `HostError`, and
  /// changes nothing, when the directory or its contents are no lab and cannot become one.
  Store(const std::filesystem::path& directory, const NewLab& newLab);

  /// Prepares the store for another use; false when it must be opened anew. Throws `HostError` as
  /// opening does.
  bool IsCurrent();

  const std::filesystem::path& GetDirectory() const { return directory_; }

  /// Throws `HostError`: rows contradict each other.
  [[noreturn]] void FailDamaged(const std::string& what) { database_->FailDamaged(what); }

  /// Replaces the row with this key, or adds the row. An id of 0 is replaced by a new one.
  template <class Row>
  void Save(const Row& row) {
    static const std::string kSave = SaveStatement<Row>();
    Query query = database_->Prepare(kSave);
    Row::Visit(row,
               [&](const char*, const auto& member, Presence = kRequired) { query.Bind(member); });
    query.Step();
  }

  /// Returns the row with this key: a value for each column of `Row::kTable.key`.
  template <class Row, class... Key>
  std::optional<Row> Find(const Key&... key) {
    static const std::string kWhere = WhereEqual(Row::kTable.key, sizeof...(key));
    return SelectOne<Row>(kWhere, key...);
  }

  /// Returns all rows, in the order of `Row::kTable.order`, which is not null.
  template <class Row>
  std::vector<Row> List() {
    static const std::string kOrder = std::string(" ORDER BY ") + Row::kTable.order;
    return Select<Row>(kOrder);
  }

  /// Returns the rows of one owner, in the same order.
  template <class Row, class Owner>
  std::vector<Row> List(const Owner& owner) {
    static const std::string kClauses =
        WhereEqual(Row::kTable.owner) + " ORDER BY " + Row::kTable.order;
    return Select<Row>(kClauses, owner);
  }

  /// Whether the owner has any such row.
  template <class Row, class Owner>
  bool Has(const Owner& owner) {
    static const std::string kSelect = SelectFrom<Row>("1") + WhereEqual(Row::kTable.owner);
    return database_->Prepare(kSelect, owner).Step();
  }

  /// Removes the row with this key, and the rows that belong to it. A cluster must have no members.
  template <class Row, class... Key>
  void Remove(const Key&... key) {
    static const std::string kDelete =
        DeleteFrom<Row>() + WhereEqual(Row::kTable.key, sizeof...(key));
    database_->Run(kDelete, key...);
  }

  /// Removes all rows of one owner.
  template <class Row, class Owner>
  void RemoveAll(const Owner& owner) {
    static const std::string kDelete = DeleteFrom<Row>() + WhereEqual(Row::kTable.owner);
    database_->Run(kDelete, owner);
  }

  /// Returns the UUID that the lab shares with its copies.
  std::string GetLabUuid();
  /// Removes every host and cluster.
  void Clear();

  std::optional<HostRow> FindHost(std::string_view name);
  /// Returns the members of the cluster that the host is in, itself among them.
  std::vector<MemberRow> ListPeers(std::int64_t host);
  /// Whether the host has interfaces, but none of them runs.
  bool IsIsolated(std::int64_t host);
  /// Puts every persisted interface of the host into effect, or out of it.
  void SetKnicsRunning(std::int64_t host, bool running);
  /// Counts the host's disks. An unplugged disk counts as failed if it is claimed, else not at all.
  DiskCount CountDisks(std::int64_t host);
  /// Returns the host's claimed disks, in any order.
  std::vector<DiskRow> ListClaimedDisks(std::int64_t host);
  /// Returns the disks of a group, its cache device among them.
  std::vector<DiskRow> ListGroup(std::int64_t host, std::string_view group);
  std::optional<DiskRow> FindDisk(std::string_view uuid);

  /// A transaction that is rolled back unless it is committed.
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
  /// Returns the rows that the clauses choose. Throws `HostError` when one is damaged.
  template <class Row, class... Values>
  std::vector<Row> Select(const std::string& clauses, const Values&... values) {
    static const std::string kSelect = SelectFrom<Row>(ColumnNames<Row>());
    Query query = database_->Prepare(kSelect + clauses, values...);
    std::vector<Row> rows;
    while (query.Step()) {
      int index = 0;
      Row& row = rows.emplace_back();
      Row::Visit(row, [&](const char*, auto& member, Presence = kRequired) {
        query.Read(index++, member);
      });
      if constexpr (requires { row.GetDamage(); }) {
        if (const std::string damage = row.GetDamage(); !damage.empty()) FailDamaged(damage);
      }
    }
    return rows;
  }

  template <class Row, class... Values>
  std::optional<Row> SelectOne(const std::string& clauses, const Values&... values) {
    auto rows = Select<Row>(clauses, values...);
    if (rows.empty()) return std::nullopt;
    return std::move(rows.front());
  }

  std::filesystem::path GetFile() const;
  void RequireTrust() const;
  /// Throws `HostError` when the open file is not a usable store.
  void Check();
  void Make(const NewLab& newLab);
  /// Takes the next step in making the store. Returns whether it was the last.
  bool TakeStep(const NewLab& newLab);

  std::filesystem::path directory_;
  std::optional<Database> database_;
};

}  // namespace Lab
