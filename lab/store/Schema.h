// The statements on the tables, derived from the rows' types.
#pragma once

#include <cstdint>
#include <string>
#include <type_traits>

#include "store/Rows.h"

namespace Lab {

/// Marks a SQLite file as a lab's store.
inline constexpr std::int64_t kApplicationId = 0x446F764C;
/// Grows with every change of the schema. A store of another version is refused.
inline constexpr std::int64_t kSchemaVersion = 4;

/// Joins by commas what `part(name, member, presence)` returns for each column.
template <class Row, class Part>
std::string JoinColumns(Part&& part) {
  std::string joined;
  Row row;
  Row::Visit(row, [&](const char* name, auto& member, Presence presence = kRequired) {
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
  return std::string("CREATE TABLE ") + Row::kTable.name + " (" + JoinColumns<Row>(column) +
         ", PRIMARY KEY (" + Row::kTable.key + ")" + Row::kTable.rules + ");";
}

/// Returns the statements that make all tables.
inline std::string CreateTables() {
  return CreateStatement<LabRow>() + CreateStatement<HostRow>() + CreateStatement<ClusterRow>() +
         CreateStatement<MemberRow>() + CreateStatement<DatastoreRow>() +
         CreateStatement<AgentRow>() + CreateStatement<KnicRow>() + CreateStatement<DiskRow>() +
         CreateStatement<PolicyRow>() + CreateStatement<FaultRow>();
}

/// Inserts a row or replaces the row with its key.
template <class Row>
std::string SaveStatement() {
  const auto value = [](const char*, auto& member, Presence presence) {
    return std::string(presence == kRequired         ? "?"
                       : kIsString<decltype(member)> ? "NULLIF(?, '')"
                                                     : "NULLIF(?, 0)");
  };
  const auto update = [](const char* name, auto&, Presence) {
    return std::string(name) + " = excluded." + name;
  };
  return std::string("INSERT INTO ") + Row::kTable.name + " (" + ColumnNames<Row>() + ") VALUES (" +
         JoinColumns<Row>(value) + ") ON CONFLICT (" + Row::kTable.key + ") DO UPDATE SET " +
         JoinColumns<Row>(update);
}

/// Selects `columns` of the rows that further clauses choose.
template <class Row>
std::string SelectFrom(const std::string& columns) {
  return "SELECT " + columns + " FROM " + Row::kTable.name;
}

/// Deletes the rows that further clauses choose.
template <class Row>
std::string DeleteFrom() {
  return std::string("DELETE FROM ") + Row::kTable.name;
}

/// Chooses the rows in which `count` columns, given as a list, have the values that are bound.
inline std::string WhereEqual(const char* columns, std::size_t count = 1) {
  std::string values = "?";
  while (--count > 0) values += ", ?";
  return std::string(" WHERE (") + columns + ") = (" + values + ")";
}

}  // namespace Lab
