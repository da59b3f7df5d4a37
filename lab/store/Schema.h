// The store's tables.
#pragma once

#include <cstdint>
#include <string>

#include "store/Rows.h"
#include "store/Table.h"
#include "store/Uuids.h"

namespace Lab {

/// Marks a SQLite file as a lab's store.
inline constexpr std::int64_t kApplicationId = 0x446F764C;
/// Grows with every change of the schema. A store of another version is refused.
inline constexpr std::int64_t kSchemaVersion = 4;

template <>
struct Table<LabRow> {
  static constexpr const char* kName = "lab";
  static constexpr const char* kKey = "uuid";
  static constexpr const char* kOrder = "uuid";
  static constexpr const char* kRules = "";
  static void Visit(auto& row, auto&& column) { column("uuid", row.uuid); }
};

template <>
struct Table<HostRow> {
  static constexpr const char* kName = "hosts";
  static constexpr const char* kKey = "id";
  static constexpr const char* kOrder = "id";
  static constexpr const char* kRules = ", UNIQUE (name), UNIQUE (uuid)";
  static void Visit(auto& row, auto&& column) {
    column("id", row.id, kOptional);
    column("name", row.name);
    column("uuid", row.uuid);
    column("api_version", row.apiVersion);
    column("fault_domain", row.faultDomain);
    column("auto_claim", row.autoClaim);
    column("entering_maintenance", row.enteringMaintenance);
    column("resync_throttle", row.resyncThrottle);
    column("resync_demand", row.resyncDemand);
    column("network_group", row.networkGroup);
  }
  /// A host's name and UUID become parts of paths.
  static std::string DamageOf(const HostRow& host) {
    if (!IsHostName(host.name)) return "a host is called \"" + host.name + "\"";
    if (!IsUuid(host.uuid)) return "host " + host.name + " has the UUID \"" + host.uuid + "\"";
    return {};
  }
};

template <>
struct Table<ClusterRow> {
  static constexpr const char* kName = "clusters";
  static constexpr const char* kKey = "uuid";
  static constexpr const char* kRules = "";
  static void Visit(auto& row, auto&& column) {
    column("uuid", row.uuid);
    column("membership_uuid", row.membershipUuid);
    column("revision", row.revision);
    column("generation", row.generation);
    column("generation_uuid", row.generationUuid);
    column("generation_time", row.generationTime);
  }
};

template <>
struct Table<MemberRow> {
  static constexpr const char* kName = "members";
  static constexpr const char* kKey = "host";
  static constexpr const char* kOwner = "cluster";
  static constexpr const char* kOrder = "join_order";
  static constexpr const char* kRules =
      ", FOREIGN KEY (host) REFERENCES hosts ON DELETE CASCADE, FOREIGN KEY (cluster) REFERENCES "
      "clusters";
  static void Visit(auto& row, auto&& column) {
    column("host", row.host);
    column("cluster", row.cluster);
    column("witness", row.witness);
    column("preferred_fault_domain", row.preferredFaultDomain);
    column("running", row.running);
    column("join_order", row.joinOrder);
  }
};

template <>
struct Table<DatastoreRow> {
  static constexpr const char* kName = "datastores";
  static constexpr const char* kKey = "uuid";
  static constexpr const char* kOwner = "cluster";
  static constexpr const char* kOrder = "rowid";
  static constexpr const char* kRules =
      ", UNIQUE (cluster, name), FOREIGN KEY (cluster) REFERENCES clusters ON DELETE CASCADE";
  static void Visit(auto& row, auto&& column) {
    column("uuid", row.uuid);
    column("cluster", row.cluster);
    column("name", row.name);
    column("is_default", row.isDefault);
  }
};

template <>
struct Table<AgentRow> {
  static constexpr const char* kName = "unicast_agents";
  static constexpr const char* kKey = "id";
  static constexpr const char* kOwner = "host";
  static constexpr const char* kOrder = "id";
  static constexpr const char* kRules = ", FOREIGN KEY (host) REFERENCES hosts ON DELETE CASCADE";
  static void Visit(auto& row, auto&& column) {
    column("id", row.id, kOptional);
    column("host", row.host);
    column("node_uuid", row.nodeUuid);
    column("witness", row.witness);
    column("supports_unicast", row.supportsUnicast);
    column("address", row.address);
    column("port", row.port);
    column("bound_interface", row.boundInterface);
  }
};

template <>
struct Table<KnicRow> {
  static constexpr const char* kName = "knics";
  static constexpr const char* kKey = "host, name";
  static constexpr const char* kOwner = "host";
  static constexpr const char* kOrder = "name";
  static constexpr const char* kRules = ", FOREIGN KEY (host) REFERENCES hosts ON DELETE CASCADE";
  static void Visit(auto& row, auto&& column) {
    column("host", row.host);
    column("name", row.name);
    column("uuid", row.uuid);
    column("agent_group", row.agentGroup);
    column("agent_v6_group", row.agentV6Group);
    column("master_group", row.masterGroup);
    column("master_v6_group", row.masterV6Group);
    column("agent_port", row.agentPort);
    column("master_port", row.masterPort);
    column("host_unicast_port", row.hostUnicastPort);
    column("multicast_ttl", row.multicastTtl);
    column("dovra", row.dovra);
    column("witness", row.witness);
    column("running", row.running);
  }
};

template <>
struct Table<DiskRow> {
  static constexpr const char* kName = "disks";
  static constexpr const char* kKey = "host, device";
  static constexpr const char* kOwner = "host";
  static constexpr const char* kOrder = "rowid";
  static constexpr const char* kRules =
      ", UNIQUE (uuid), FOREIGN KEY (host) REFERENCES hosts ON DELETE CASCADE";
  static void Visit(auto& row, auto&& column) {
    column("host", row.host);
    column("device", row.device);
    column("flash", row.flash);
    column("capacity_tag", row.capacityTag);
    column("uuid", row.uuid, kOptional);
    column("disk_group", row.group);
    column("group_name", row.groupName);
    column("mounted", row.mounted);
    column("format_version", row.formatVersion);
    column("deduplication", row.deduplication);
    column("checksum", row.checksum);
    column("checksum_ok", row.checksumOk);
    column("encryption", row.encryption);
    column("key_loaded", row.keyLoaded);
    column("failed", row.failed);
    column("unplugged", row.unplugged);
  }
};

template <>
struct Table<PolicyRow> {
  static constexpr const char* kName = "policies";
  static constexpr const char* kKey = "host, class";
  static constexpr const char* kOwner = "host";
  static constexpr const char* kOrder = "class";
  static constexpr const char* kRules = ", FOREIGN KEY (host) REFERENCES hosts ON DELETE CASCADE";
  static void Visit(auto& row, auto&& column) {
    column("host", row.host);
    column("class", row.policyClass);
    column("policy", row.policy);
  }
};

template <>
struct Table<FaultRow> {
  static constexpr const char* kName = "faults";
  static constexpr const char* kKey = "id";
  static constexpr const char* kOwner = "host";
  static constexpr const char* kOrder = "id";
  static constexpr const char* kRules = ", FOREIGN KEY (host) REFERENCES hosts ON DELETE CASCADE";
  static void Visit(auto& row, auto&& column) {
    column("id", row.id, kOptional);
    column("host", row.host);
    column("operation", row.operation);
    column("message", row.message);
    column("passes", row.passes);
    column("remaining", row.remaining);
  }
};

/// Returns the statements that make all tables.
inline std::string CreateTables() {
  return CreateStatement<LabRow>() + CreateStatement<HostRow>() + CreateStatement<ClusterRow>() +
         CreateStatement<MemberRow>() + CreateStatement<DatastoreRow>() +
         CreateStatement<AgentRow>() + CreateStatement<KnicRow>() + CreateStatement<DiskRow>() +
         CreateStatement<PolicyRow>() + CreateStatement<FaultRow>();
}

}  // namespace Lab
