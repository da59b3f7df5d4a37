#include "store/Store.h"

namespace Lab {

namespace {

// With the columns of the host that a member's readers want beside its own.
constexpr const char* kFindMember =
    "SELECT host, cluster, witness, preferred_fault_domain, running, place, uuid, fault_domain"
    " FROM members JOIN hosts ON hosts.id = host WHERE host = ?";
constexpr const char* kListMembers =
    "SELECT host, cluster, witness, preferred_fault_domain, running, place, uuid, fault_domain"
    " FROM members JOIN hosts ON hosts.id = host WHERE cluster = ? ORDER BY place";

MemberRow ReadMember(const Query& query) {
  return {query.Int(0),  query.Text(1), query.Bool(2), query.Text(3),
          query.Bool(4), query.Int(5),  query.Text(6), query.Text(7)};
}

}  // namespace

std::optional<ClusterRow> Store::FindCluster(std::string_view uuid) {
  Query query = database_->Prepare("SELECT * FROM clusters WHERE uuid = ?", uuid);
  if (!query.Step()) return std::nullopt;
  return ClusterRow{query.Text(0), query.Text(1), query.Int(2),
                    query.Int(3),  query.Text(4), query.Int(5)};
}

void Store::SaveCluster(const ClusterRow& cluster) {
  database_->Run(
      "INSERT INTO clusters VALUES (?1, ?2, ?3, ?4, ?5, ?6) ON CONFLICT (uuid) DO UPDATE SET"
      " membership_uuid = ?2, revision = ?3, generation = ?4, generation_uuid = ?5,"
      " generation_time = ?6",
      cluster.uuid, cluster.membershipUuid, cluster.revision, cluster.generation,
      cluster.generationUuid, cluster.generationTime);
}

void Store::RemoveCluster(std::string_view uuid) {
  database_->Run("DELETE FROM clusters WHERE uuid = ?", uuid);
}

std::optional<MemberRow> Store::FindMember(std::int64_t host) {
  Query query = database_->Prepare(kFindMember, host);
  if (!query.Step()) return std::nullopt;
  return ReadMember(query);
}

std::vector<MemberRow> Store::ListMembers(std::string_view cluster) {
  Query query = database_->Prepare(kListMembers, cluster);
  std::vector<MemberRow> rows;
  while (query.Step()) rows.push_back(ReadMember(query));
  return rows;
}

void Store::SaveMember(const MemberRow& member) {
  database_->Run("INSERT OR REPLACE INTO members VALUES (?, ?, ?, ?, ?, ?)", member.host,
                 member.cluster, member.witness, member.preferredFaultDomain, member.running,
                 member.order);
}

void Store::RemoveMember(std::int64_t host) {
  database_->Run("DELETE FROM members WHERE host = ?", host);
}

std::vector<DatastoreRow> Store::ListDatastores(std::string_view cluster) {
  Query query = database_->Prepare(
      "SELECT uuid, cluster, name, is_default FROM datastores WHERE cluster = ? ORDER BY id",
      cluster);
  std::vector<DatastoreRow> rows;
  while (query.Step()) {
    rows.push_back({query.Text(0), query.Text(1), query.Text(2), query.Bool(3)});
  }
  return rows;
}

bool Store::HasDatastore(std::string_view uuid) {
  return database_->Prepare("SELECT 1 FROM datastores WHERE uuid = ?", uuid).Step();
}

void Store::AddDatastore(const DatastoreRow& datastore) {
  database_->Run("INSERT INTO datastores VALUES (NULL, ?, ?, ?, ?)", datastore.uuid,
                 datastore.cluster, datastore.name, datastore.isDefault);
}

void Store::RenameDatastore(std::string_view uuid, std::string_view name) {
  database_->Run("UPDATE datastores SET name = ? WHERE uuid = ?", name, uuid);
}

void Store::RemoveDatastore(std::string_view uuid) {
  database_->Run("DELETE FROM datastores WHERE uuid = ?", uuid);
}

}  // namespace Lab
