// The store's rows, by subject.

#include "store/Schema.h"
#include "store/Store.h"
#include "store/Uuids.h"

namespace Lab {

bool IsHostName(const std::string& name) {
  constexpr const char* kPlain =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789._-";
  return !name.empty() && name.size() <= kMaxHostName && name.front() != '.' &&
         name.front() != '-' && name.find_first_not_of(kPlain) == std::string::npos;
}

template <class Row>
void Store::Save(const Row& row) {
  Lab::Save(*database_, row);
}
template void Store::Save(const LabRow&);
template void Store::Save(const HostRow&);
template void Store::Save(const InterfaceRow&);
template void Store::Save(const ClusterRow&);
template void Store::Save(const MemberRow&);
template void Store::Save(const DatastoreRow&);
template void Store::Save(const AgentRow&);
template void Store::Save(const KnicRow&);
template void Store::Save(const DiskRow&);
template void Store::Save(const PolicyRow&);
template void Store::Save(const FaultRow&);

std::string Store::GetLabUuid() {
  const auto lab = SelectOne<LabRow>(*database_, "");
  if (!lab) FailDamaged("it has no name");
  return lab->uuid;
}

std::vector<HostRow> Store::ListHosts() {
  auto hosts = Select<HostRow>(*database_, "ORDER BY id");
  for (const HostRow& host : hosts) CheckHost(host);
  return hosts;
}

std::optional<HostRow> Store::FindHost(std::string_view name) {
  auto host = SelectOne<HostRow>(*database_, "WHERE name = ?", name);
  if (host) CheckHost(*host);
  return host;
}

std::optional<HostRow> Store::FindHost(std::int64_t id) {
  auto host = SelectOne<HostRow>(*database_, "WHERE id = ?", id);
  if (host) CheckHost(*host);
  return host;
}

void Store::CheckHost(const HostRow& host) const {
  if (!IsHostName(host.name)) FailDamaged("a host is called \"" + host.name + "\"");
  if (!IsUuid(host.uuid)) FailDamaged("host " + host.name + " has the UUID \"" + host.uuid + "\"");
}

void Store::RemoveHost(std::int64_t host) {
  database_->Run("DELETE FROM hosts WHERE id = ?", host);
}

std::vector<InterfaceRow> Store::ListInterfaces(std::int64_t host) {
  return Select<InterfaceRow>(*database_, "WHERE host = ? ORDER BY name", host);
}

void Store::Clear() {
  database_->Execute("DELETE FROM members; DELETE FROM clusters; DELETE FROM hosts;");
}

std::optional<ClusterRow> Store::FindCluster(std::string_view uuid) {
  return SelectOne<ClusterRow>(*database_, "WHERE uuid = ?", uuid);
}

void Store::RemoveCluster(std::string_view uuid) {
  database_->Run("DELETE FROM clusters WHERE uuid = ?", uuid);
}

std::optional<MemberRow> Store::FindMember(std::int64_t host) {
  return SelectOne<MemberRow>(*database_, "WHERE host = ?", host);
}

std::vector<MemberRow> Store::ListMembers(std::string_view cluster) {
  return Select<MemberRow>(*database_, "WHERE cluster = ? ORDER BY place", cluster);
}

std::vector<MemberRow> Store::ListMembers(std::int64_t host) {
  return Select<MemberRow>(
      *database_, "WHERE cluster = (SELECT cluster FROM members WHERE host = ?) ORDER BY place",
      host);
}

void Store::RemoveMember(std::int64_t host) {
  database_->Run("DELETE FROM members WHERE host = ?", host);
}

std::vector<DatastoreRow> Store::ListDatastores(std::string_view cluster) {
  return Select<DatastoreRow>(*database_, "WHERE cluster = ? ORDER BY id", cluster);
}

std::optional<DatastoreRow> Store::FindDatastore(std::string_view uuid) {
  return SelectOne<DatastoreRow>(*database_, "WHERE uuid = ?", uuid);
}

void Store::RemoveDatastore(std::string_view uuid) {
  database_->Run("DELETE FROM datastores WHERE uuid = ?", uuid);
}

bool Store::HasAgents(std::int64_t host) {
  return HasAny<AgentRow>(*database_, "WHERE host = ?", host);
}

std::vector<AgentRow> Store::ListAgents(std::int64_t host) {
  return Select<AgentRow>(*database_, "WHERE host = ? ORDER BY id", host);
}

void Store::RemoveAgent(std::int64_t agent) {
  database_->Run("DELETE FROM unicast_agents WHERE id = ?", agent);
}

std::vector<KnicRow> Store::ListKnics(std::int64_t host) {
  return Select<KnicRow>(*database_, "WHERE host = ? ORDER BY name", host);
}

std::optional<KnicRow> Store::FindKnic(std::int64_t host, std::string_view name) {
  return SelectOne<KnicRow>(*database_, "WHERE host = ? AND name = ?", host, name);
}

void Store::RemoveKnic(std::int64_t host, std::string_view name) {
  database_->Run("DELETE FROM knics WHERE host = ? AND name = ?", host, name);
}

void Store::ClearKnics(std::int64_t host) {
  database_->Run("DELETE FROM knics WHERE host = ?", host);
}

void Store::SetKnicsRunning(std::int64_t host, bool running) {
  database_->Run("UPDATE knics SET running = ? WHERE host = ?", running, host);
}

std::vector<DiskRow> Store::ListDisks(std::int64_t host) {
  return Select<DiskRow>(*database_, "WHERE host = ? ORDER BY id", host);
}

std::vector<DiskRow> Store::ListClaimedDisks() {
  return Select<DiskRow>(*database_, "WHERE uuid IS NOT NULL ORDER BY uuid");
}

std::vector<DiskRow> Store::ListGroup(std::int64_t host, std::string_view group) {
  return Select<DiskRow>(*database_, "WHERE host = ? AND disk_group = ? ORDER BY id", host, group);
}

std::optional<DiskRow> Store::FindDisk(std::int64_t host, std::string_view device) {
  return SelectOne<DiskRow>(*database_, "WHERE host = ? AND device = ?", host, device);
}

std::optional<DiskRow> Store::FindDiskByUuid(std::string_view uuid) {
  return SelectOne<DiskRow>(*database_, "WHERE uuid = ?", uuid);
}

std::optional<PolicyRow> Store::FindPolicy(std::int64_t host, std::string_view policyClass) {
  return SelectOne<PolicyRow>(*database_, "WHERE host = ? AND class = ?", host, policyClass);
}

void Store::ClearPolicies(std::int64_t host) {
  database_->Run("DELETE FROM policies WHERE host = ?", host);
}

bool Store::HasFaults(std::int64_t host) {
  return HasAny<FaultRow>(*database_, "WHERE host = ?", host);
}

std::vector<FaultRow> Store::ListFaults(std::int64_t host) {
  return Select<FaultRow>(*database_, "WHERE host = ? ORDER BY id", host);
}

void Store::RemoveFault(std::int64_t fault) {
  database_->Run("DELETE FROM faults WHERE id = ?", fault);
}

}  // namespace Lab
