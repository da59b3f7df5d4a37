#include "store/Store.h"

namespace Lab {

namespace {

// A disk without a UUID has none in common with another: it is stored as NULL.
constexpr const char* kListDisks = "SELECT * FROM disks WHERE host = ? ORDER BY id";
constexpr const char* kListKnownDisks =
    "SELECT * FROM disks WHERE uuid IS NOT NULL AND (host = ? OR host IN"
    " (SELECT host FROM members WHERE cluster = ? AND running))";
constexpr const char* kFindDisk = "SELECT * FROM disks WHERE host = ? AND device = ?";
constexpr const char* kFindDiskByUuid = "SELECT * FROM disks WHERE uuid = ?";

DiskRow ReadDisk(const Query& query) {
  DiskRow disk;
  disk.id = query.Int(0);
  disk.host = query.Int(1);
  disk.device = query.Text(2);
  disk.flash = query.Bool(3);
  disk.capacityTag = query.Bool(4);
  disk.uuid = query.Text(5);
  disk.group = query.Text(6);
  disk.groupName = query.Text(7);
  disk.mounted = query.Bool(8);
  disk.formatVersion = query.Int(9);
  disk.deduplication = query.Bool(10);
  disk.checksum = query.Text(11);
  disk.checksumOk = query.Bool(12);
  disk.encryption = query.Bool(13);
  disk.keyLoaded = query.Bool(14);
  return disk;
}

std::vector<DiskRow> ReadAll(Query query) {
  std::vector<DiskRow> rows;
  while (query.Step()) rows.push_back(ReadDisk(query));
  return rows;
}

std::optional<DiskRow> ReadOne(Query query) {
  if (!query.Step()) return std::nullopt;
  return ReadDisk(query);
}

}  // namespace

std::vector<DiskRow> Store::ListDisks(std::int64_t host) {
  return ReadAll(database_->Prepare(kListDisks, host));
}

std::optional<DiskRow> Store::FindDisk(std::int64_t host, std::string_view device) {
  return ReadOne(database_->Prepare(kFindDisk, host, device));
}

std::optional<DiskRow> Store::FindDiskByUuid(std::string_view uuid) {
  return ReadOne(database_->Prepare(kFindDiskByUuid, uuid));
}

std::vector<DiskRow> Store::ListKnownDisks(std::int64_t host, std::string_view cluster) {
  return ReadAll(database_->Prepare(kListKnownDisks, host, cluster));
}

std::vector<std::string> Store::ListClusterDiskUuids(std::string_view cluster) {
  Query query = database_->Prepare(
      "SELECT uuid FROM disks WHERE uuid IS NOT NULL AND host IN"
      " (SELECT host FROM members WHERE cluster = ? AND running)",
      cluster);
  std::vector<std::string> uuids;
  while (query.Step()) uuids.push_back(query.Text(0));
  return uuids;
}

void Store::AddDisk(const DiskRow& disk) {
  database_->Run(
      "INSERT INTO disks VALUES (NULL, ?, ?, ?, ?, NULLIF(?, ''), ?, ?, ?, ?, ?, ?, ?, ?, ?)",
      disk.host, disk.device, disk.flash, disk.capacityTag, disk.uuid, disk.group, disk.groupName,
      disk.mounted, disk.formatVersion, disk.deduplication, disk.checksum, disk.checksumOk,
      disk.encryption, disk.keyLoaded);
}

void Store::SaveDisk(const DiskRow& disk) {
  database_->Run(
      "UPDATE disks SET flash = ?, capacity_tag = ?, uuid = NULLIF(?, ''), disk_group = ?,"
      " group_name = ?, mounted = ?, format_version = ?, deduplication = ?, checksum = ?,"
      " checksum_ok = ?, encryption = ?, key_loaded = ? WHERE id = ?",
      disk.flash, disk.capacityTag, disk.uuid, disk.group, disk.groupName, disk.mounted,
      disk.formatVersion, disk.deduplication, disk.checksum, disk.checksumOk, disk.encryption,
      disk.keyLoaded, disk.id);
}

}  // namespace Lab
