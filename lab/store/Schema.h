#pragma once

#include <cstdint>

namespace Lab {

/// Marks a SQLite file as a lab's store.
inline constexpr std::int64_t kApplicationId = 0x446F764C;
/// Grows with every change of the schema. A store of a later version is left alone.
inline constexpr std::int64_t kSchemaVersion = 1;

inline constexpr const char* kSchema = R"sql(
PRAGMA application_id = 1148155468;
PRAGMA user_version = 1;

CREATE TABLE hosts (
  id INTEGER PRIMARY KEY,
  name TEXT NOT NULL UNIQUE,
  uuid TEXT NOT NULL UNIQUE,
  api_version INTEGER NOT NULL,
  fault_domain TEXT NOT NULL,
  auto_claim INTEGER NOT NULL,
  entering_maintenance INTEGER NOT NULL,
  resync_throttle INTEGER NOT NULL,
  resync_demand INTEGER NOT NULL);

CREATE TABLE interfaces (
  host INTEGER NOT NULL REFERENCES hosts ON DELETE CASCADE,
  name TEXT NOT NULL,
  PRIMARY KEY (host, name)) WITHOUT ROWID;

CREATE TABLE clusters (
  uuid TEXT PRIMARY KEY,
  membership_uuid TEXT NOT NULL,
  revision INTEGER NOT NULL,
  generation INTEGER NOT NULL,
  generation_uuid TEXT NOT NULL,
  generation_time INTEGER NOT NULL) WITHOUT ROWID;

CREATE TABLE members (
  host INTEGER PRIMARY KEY REFERENCES hosts ON DELETE CASCADE,
  cluster TEXT NOT NULL REFERENCES clusters,
  witness INTEGER NOT NULL,
  preferred_fault_domain TEXT NOT NULL,
  running INTEGER NOT NULL,
  place INTEGER NOT NULL);
CREATE INDEX members_by_cluster ON members (cluster, place);

CREATE TABLE datastores (
  id INTEGER PRIMARY KEY,
  uuid TEXT NOT NULL UNIQUE,
  cluster TEXT NOT NULL REFERENCES clusters ON DELETE CASCADE,
  name TEXT NOT NULL,
  is_default INTEGER NOT NULL,
  UNIQUE (cluster, name));

CREATE TABLE unicast_agents (
  id INTEGER PRIMARY KEY,
  host INTEGER NOT NULL REFERENCES hosts ON DELETE CASCADE,
  node_uuid TEXT NOT NULL,
  witness INTEGER NOT NULL,
  supports_unicast INTEGER NOT NULL,
  address TEXT NOT NULL,
  port INTEGER NOT NULL,
  bound_interface TEXT NOT NULL);
CREATE INDEX unicast_agents_by_host ON unicast_agents (host);

CREATE TABLE knics (
  host INTEGER NOT NULL,
  name TEXT NOT NULL,
  uuid TEXT NOT NULL,
  agent_group TEXT NOT NULL,
  agent_v6_group TEXT NOT NULL,
  master_group TEXT NOT NULL,
  master_v6_group TEXT NOT NULL,
  agent_port INTEGER NOT NULL,
  master_port INTEGER NOT NULL,
  host_unicast_port INTEGER NOT NULL,
  multicast_ttl INTEGER NOT NULL,
  dovra INTEGER NOT NULL,
  witness INTEGER NOT NULL,
  running INTEGER NOT NULL,
  PRIMARY KEY (host, name),
  FOREIGN KEY (host, name) REFERENCES interfaces (host, name) ON DELETE CASCADE) WITHOUT ROWID;

CREATE TABLE disks (
  id INTEGER PRIMARY KEY,
  host INTEGER NOT NULL REFERENCES hosts ON DELETE CASCADE,
  device TEXT NOT NULL,
  flash INTEGER NOT NULL,
  capacity_tag INTEGER NOT NULL,
  uuid TEXT UNIQUE,
  disk_group TEXT NOT NULL,
  group_name TEXT NOT NULL,
  mounted INTEGER NOT NULL,
  format_version INTEGER NOT NULL,
  deduplication INTEGER NOT NULL,
  checksum TEXT NOT NULL,
  checksum_ok INTEGER NOT NULL,
  encryption INTEGER NOT NULL,
  key_loaded INTEGER NOT NULL,
  UNIQUE (host, device));

CREATE TABLE policies (
  host INTEGER NOT NULL REFERENCES hosts ON DELETE CASCADE,
  class TEXT NOT NULL,
  policy TEXT NOT NULL,
  PRIMARY KEY (host, class)) WITHOUT ROWID;

CREATE TABLE faults (
  id INTEGER PRIMARY KEY,
  host INTEGER NOT NULL REFERENCES hosts ON DELETE CASCADE,
  operation TEXT NOT NULL,
  message TEXT NOT NULL,
  remaining INTEGER NOT NULL);
)sql";

}  // namespace Lab
