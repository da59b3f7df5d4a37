// How rows are stored: a `Table` says once which columns a row has, and the statements follow.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "store/Sqlite.h"

namespace Lab {

/// What is known of the rows of a type:
/// - `kName`, the table, and `kKey`, the columns by which a row is found again;
/// - `kRules`, what else the table's definition says;
/// - `Visit(row, column)`, which calls `column(name, member, rule)` for each column in turn. A
///   column whose rule is not `kNotNull` is NULL where the member is empty or 0.
template <class Row>
struct Table;

inline constexpr const char* kNotNull = "NOT NULL";

/// Joins what `part(name, member, rule)` makes of each column by commas.
template <class Row, class Part>
std::string JoinColumns(Part&& part) {
  std::string text;
  Row row;
  Table<Row>::Visit(row, [&](const char* name, auto& member, const char* rule = kNotNull) {
    text += (text.empty() ? "" : ", ") + part(name, member, rule);
  });
  return text;
}

/// A column's part where it is only named.
inline constexpr auto kColumnName = [](const char* name, auto&, const char*) {
  return std::string(name);
};

template <class Member>
inline constexpr bool kIsText = std::is_same_v<Member, std::string&>;

template <class Row>
std::string CreateStatement() {
  const auto column = [](const char* name, auto& member, const char* rule) {
    return std::string(name) + (kIsText<decltype(member)> ? " TEXT " : " INTEGER ") + rule;
  };
  return std::string("CREATE TABLE ") + Table<Row>::kName + " (" + JoinColumns<Row>(column) + ", " +
         Table<Row>::kRules + ");";
}

/// The rows that the condition, all that follows the table's name, leaves.
template <class Row, class... Values>
std::vector<Row> Select(Database& database, const char* condition, const Values&... values) {
  static const std::string kSelect =
      "SELECT " + JoinColumns<Row>(kColumnName) + " FROM " + Table<Row>::kName + ' ';
  Query query = database.Prepare(kSelect + condition, values...);
  std::vector<Row> rows;
  while (query.Step()) {
    int place = 0;
    Table<Row>::Visit(rows.emplace_back(), [&](const char*, auto& member, const char* = kNotNull) {
      query.Read(place++, member);
    });
  }
  return rows;
}

/// The first of them.
template <class Row, class... Values>
std::optional<Row> SelectOne(Database& database, const char* condition, const Values&... values) {
  auto rows = Select<Row>(database, condition, values...);
  if (rows.empty()) return std::nullopt;
  return std::move(rows.front());
}

/// Whether the condition leaves any.
template <class Row, class... Values>
bool HasAny(Database& database, const char* condition, const Values&... values) {
  static const std::string kSelect = std::string("SELECT 1 FROM ") + Table<Row>::kName + ' ';
  return database.Prepare(kSelect + condition, values...).Step();
}

/// Writes the row in the place of the one with its key, if there is one.
template <class Row>
void Save(Database& database, const Row& row) {
  static const std::string kSave = [] {
    const auto value = [](const char*, auto& member, const char* rule) {
      return std::string(rule == kNotNull            ? "?"
                         : kIsText<decltype(member)> ? "NULLIF(?, '')"
                                                     : "NULLIF(?, 0)");
    };
    const auto update = [](const char* name, auto&, const char*) {
      return std::string(name) + " = excluded." + name;
    };
    return std::string("INSERT INTO ") + Table<Row>::kName + " (" + JoinColumns<Row>(kColumnName) +
           ") VALUES (" + JoinColumns<Row>(value) + ") ON CONFLICT (" + Table<Row>::kKey +
           ") DO UPDATE SET " + JoinColumns<Row>(update);
  }();
  Query query = database.Prepare(kSave);
  Table<Row>::Visit(
      row, [&](const char*, const auto& member, const char* = kNotNull) { query.Bind(member); });
  query.Step();
}

}  // namespace Lab
