// The statements of a table, derived from its `Table`.
#pragma once

#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "store/Sqlite.h"

namespace Lab {

/// Describes the table of a row's type:
/// - `kName`: the table;
/// - `kKey`: the columns of its primary key;
/// - `kOwner`: the column that refers to the owner of the row, if it has one;
/// - `kOrder`: the order in which rows are listed;
/// - `kRules`: further constraints, each after a comma;
/// - `Visit(row, column)`: calls `column(name, member, presence)` for each column in turn;
/// - `DamageOf(row)`: says what is wrong with a row that was read; empty when nothing is. Optional.
template <class Row>
struct Table;

/// An optional column is NULL where the member is empty or 0.
enum Presence { kRequired, kOptional };

/// Joins by commas what `part(name, member, presence)` returns for each column.
template <class Row, class Part>
std::string JoinColumns(Part&& part) {
  std::string joined;
  Row row;
  Table<Row>::Visit(row, [&](const char* name, auto& member, Presence presence = kRequired) {
    joined += (joined.empty() ? "" : ", ") + part(name, member, presence);
  });
  return joined;
}

template <class Row>
std::string ColumnNames() {
  return JoinColumns<Row>([](const char* name, auto&, Presence) { return std::string(name); });
}

template <class Member>
inline constexpr bool kIsString = std::is_same_v<Member, std::string&>;

template <class Row>
std::string CreateStatement() {
  const auto column = [](const char* name, auto& member, Presence presence) {
    return std::string(name) + (kIsString<decltype(member)> ? " TEXT" : " INTEGER") +
           (presence == kRequired ? " NOT NULL" : "");
  };
  return std::string("CREATE TABLE ") + Table<Row>::kName + " (" + JoinColumns<Row>(column) +
         ", PRIMARY KEY (" + Table<Row>::kKey + ")" + Table<Row>::kRules + ");";
}

/// A condition that `count` columns, which are joined by commas, have the values that are bound.
inline std::string WhereEqual(const char* columns, std::size_t count) {
  std::string values = "?";
  while (--count > 0) values += ", ?";
  return std::string(" WHERE (") + columns + ") = (" + values + ")";
}

/// Returns the rows that the clauses after the table's name select. Throws `HostError` when one is
/// damaged.
template <class Row, class... Values>
std::vector<Row> Select(Database& database, const std::string& clauses, const Values&... values) {
  static const std::string kSelect = "SELECT " + ColumnNames<Row>() + " FROM " + Table<Row>::kName;
  Query query = database.Prepare(kSelect + clauses, values...);
  std::vector<Row> rows;
  while (query.Step()) {
    int index = 0;
    Row& row = rows.emplace_back();
    Table<Row>::Visit(
        row, [&](const char*, auto& member, Presence = kRequired) { query.Read(index++, member); });
    if constexpr (requires { Table<Row>::DamageOf(row); }) {
      if (const std::string damage = Table<Row>::DamageOf(row); !damage.empty()) {
        database.FailDamaged(damage);
      }
    }
  }
  return rows;
}

/// Returns the first of them.
template <class Row, class... Values>
std::optional<Row> SelectOne(Database& database, const std::string& clauses,
                             const Values&... values) {
  auto rows = Select<Row>(database, clauses, values...);
  if (rows.empty()) return std::nullopt;
  return std::move(rows.front());
}

template <class Row, class... Key>
std::optional<Row> Find(Database& database, const Key&... key) {
  static const std::string kWhere = WhereEqual(Table<Row>::kKey, sizeof...(key));
  return SelectOne<Row>(database, kWhere, key...);
}

template <class Row, class... Owner>
std::vector<Row> List(Database& database, const Owner&... owner) {
  static const std::string kClauses = [] {
    std::string where;
    if constexpr (sizeof...(owner) > 0) where = WhereEqual(Table<Row>::kOwner, sizeof...(owner));
    return where + " ORDER BY " + Table<Row>::kOrder;
  }();
  return Select<Row>(database, kClauses, owner...);
}

template <class Row, class Owner>
bool Has(Database& database, const Owner& owner) {
  static const std::string kSelect =
      std::string("SELECT 1 FROM ") + Table<Row>::kName + WhereEqual(Table<Row>::kOwner, 1);
  return database.Prepare(kSelect, owner).Step();
}

template <class Row, class... Key>
void Remove(Database& database, const Key&... key) {
  static const std::string kDelete = std::string("DELETE FROM ") + Table<Row>::kName +
                                     WhereEqual(Table<Row>::kKey, sizeof...(key));
  database.Run(kDelete, key...);
}

template <class Row, class Owner>
void RemoveAll(Database& database, const Owner& owner) {
  static const std::string kDelete =
      std::string("DELETE FROM ") + Table<Row>::kName + WhereEqual(Table<Row>::kOwner, 1);
  database.Run(kDelete, owner);
}

template <class Row>
void Save(Database& database, const Row& row) {
  static const std::string kSave = [] {
    const auto value = [](const char*, auto& member, Presence presence) {
      return std::string(presence == kRequired         ? "?"
                         : kIsString<decltype(member)> ? "NULLIF(?, '')"
                                                       : "NULLIF(?, 0)");
    };
    const auto update = [](const char* name, auto&, Presence) {
      return std::string(name) + " = excluded." + name;
    };
    return std::string("INSERT INTO ") + Table<Row>::kName + " (" + ColumnNames<Row>() +
           ") VALUES (" + JoinColumns<Row>(value) + ") ON CONFLICT (" + Table<Row>::kKey +
           ") DO UPDATE SET " + JoinColumns<Row>(update);
  }();
  Query query = database.Prepare(kSave);
  Table<Row>::Visit(
      row, [&](const char*, const auto& member, Presence = kRequired) { query.Bind(member); });
  query.Step();
}

}  // namespace Lab
