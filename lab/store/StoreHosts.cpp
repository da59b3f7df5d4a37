#include "store/NewUuid.h"
#include "store/Store.h"

namespace Lab {

namespace {

constexpr const char* kNewInterfaces[] = {"knic0", "knic1"};

constexpr struct {
  const char* device;
  bool flash;
} kNewDisks[] = {
    {"mpx.xhba1:C0:T0:L0", true},  {"mpx.xhba1:C0:T1:L0", true},  {"mpx.xhba2:C0:T0:L0", false},
    {"mpx.xhba2:C0:T1:L0", false}, {"mpx.xhba2:C0:T2:L0", false}, {"mpx.xhba2:C0:T3:L0", false},
};

HostRow ReadHost(const Query& query) {
  return {query.Int(0),  query.Text(1), query.Text(2), query.Int(3), query.Text(4),
          query.Bool(5), query.Bool(6), query.Int(7),  query.Int(8)};
}

}  // namespace

std::vector<HostRow> Store::ListHosts() {
  Query query = database_->Prepare("SELECT * FROM hosts ORDER BY id");
  std::vector<HostRow> rows;
  while (query.Step()) rows.push_back(ReadHost(query));
  return rows;
}

std::optional<HostRow> Store::FindHost(std::string_view name) {
  Query query = database_->Prepare("SELECT * FROM hosts WHERE name = ?", name);
  if (!query.Step()) return std::nullopt;
  return ReadHost(query);
}

HostRow Store::AddHost(const std::string& name) {
  HostRow host;
  host.name = name;
  host.uuid = NewUuid();
  database_->Run("INSERT INTO hosts VALUES (NULL, ?, ?, ?, ?, ?, ?, ?, ?)", host.name, host.uuid,
                 host.apiVersion, host.faultDomain, host.autoClaim, host.enteringMaintenance,
                 host.resyncThrottle, host.resyncDemand);
  host.id = database_->LastRowId();
  for (const char* const interface : kNewInterfaces) {
    database_->Run("INSERT INTO interfaces VALUES (?, ?)", host.id, interface);
  }
  for (const auto& [device, flash] : kNewDisks) {
    DiskRow disk;
    disk.host = host.id;
    disk.device = device;
    disk.flash = flash;
    AddDisk(disk);
  }
  return host;
}

void Store::SaveHost(const HostRow& host) {
  database_->Run(
      "UPDATE hosts SET api_version = ?, fault_domain = ?, auto_claim = ?,"
      " entering_maintenance = ?, resync_throttle = ?, resync_demand = ? WHERE id = ?",
      host.apiVersion, host.faultDomain, host.autoClaim, host.enteringMaintenance,
      host.resyncThrottle, host.resyncDemand, host.id);
}

void Store::RemoveHost(std::int64_t host) {
  database_->Run("DELETE FROM hosts WHERE id = ?", host);
}

std::vector<std::string> Store::ListInterfaces(std::int64_t host) {
  Query query =
      database_->Prepare("SELECT name FROM interfaces WHERE host = ? ORDER BY name", host);
  std::vector<std::string> names;
  while (query.Step()) names.push_back(query.Text(0));
  return names;
}

std::string Store::GetPolicy(std::int64_t host, std::string_view policyClass) {
  Query query = database_->Prepare("SELECT policy FROM policies WHERE host = ? AND class = ?", host,
                                   policyClass);
  return query.Step() ? query.Text(0) : std::string();
}

void Store::SetPolicy(std::int64_t host, std::string_view policyClass, std::string_view policy) {
  database_->Run("INSERT OR REPLACE INTO policies VALUES (?, ?, ?)", host, policyClass, policy);
}

void Store::ClearPolicies(std::int64_t host) {
  database_->Run("DELETE FROM policies WHERE host = ?", host);
}

}  // namespace Lab
