// The rows of the lab's store, and how they are stored.
#pragma once

#include <cstdint>
#include <string>

#include "store/Uuids.h"

namespace Lab {

/// Describes the table of a row's type. The row's type also declares
/// - `Visit(row, column)`: calls `column(name, member)` or, for an optional column,
///   `column(name, member, kOptional)`, for each column in turn;
/// - `GetDamage()`, optionally: says what is wrong with a row that was read; empty when nothing is.
struct Table {
  const char* name;
  const char* key;              ///< the columns of the primary key
  const char* owner = nullptr;  ///< the column that refers to the row's owner
  const char* order = nullptr;  ///< the columns by which rows are sorted
  const char* rules = "";       ///< further constraints, each after a comma
};

/// An optional column is NULL where the member is empty or 0.
enum Presence { kRequired, kOptional };

inline constexpr const char* kBelongsToHost =
    ", FOREIGN KEY (host) REFERENCES hosts ON DELETE CASCADE";

/// The lab itself: one row.
struct LabRow {
  static constexpr Table kTable = {"lab", "uuid", nullptr, "uuid"};
  std::string uuid;

  static void Visit(auto& row, auto&& column) { column("uuid", row.uuid); }
};

inline constexpr std::size_t kMaxHostName = 64;
/// Whether the name can be a host's, and so a directory's: letters, digits, ".", "_" and "-", the
/// first of them a letter, a digit or "_".
inline bool IsHostName(const std::string& name) {
  constexpr const char* kAllowed =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789._-";
  return !name.empty() && name.size() <= kMaxHostName && name.front() != '.' &&
         name.front() != '-' && name.find_first_not_of(kAllowed) == std::string::npos;
}

struct HostRow {
  static constexpr Table kTable = {"hosts", "id", nullptr, "id", ", UNIQUE (name), UNIQUE (uuid)"};
  std::int64_t id = 0;
  std::string name;
  std::string uuid;
  std::int64_t apiVersion = 2;  ///< 1: a control library without `DovraInfo2`
  bool power = true;
  std::string faultDomain;  ///< empty if none
  bool autoClaim = false;
  bool enteringMaintenance = false;
  std::int64_t resyncThrottle = 0;  ///< Mbps; 0: none
  std::int64_t resyncDemand = 0;    ///< bandwidth used without a throttle, Mbps
  /// 0 without a split; each split puts the hosts that it names into a new group.
  std::int64_t networkGroup = 0;

  static void Visit(auto& row, auto&& column) {
    column("id", row.id, kOptional);
    column("name", row.name);
    column("uuid", row.uuid);
    column("api_version", row.apiVersion);
    column("power", row.power);
    column("fault_domain", row.faultDomain);
    column("auto_claim", row.autoClaim);
    column("entering_maintenance", row.enteringMaintenance);
    column("resync_throttle", row.resyncThrottle);
    column("resync_demand", row.resyncDemand);
    column("network_group", row.networkGroup);
  }
  /// The name and the UUID become parts of paths.
  std::string GetDamage() const {
    if (!IsHostName(name)) return "a host is called \"" + name + "\"";
    if (!IsUuid(uuid)) return "host " + name + " has the UUID \"" + uuid + "\"";
    return {};
  }
};

struct ClusterRow {
  static constexpr Table kTable = {"clusters", "uuid"};
  std::string uuid;
  std::string membershipUuid;
  std::int64_t revision = 0;    ///< of the membership
  std::int64_t generation = 0;  ///< of the configuration
  std::string generationUuid;
  std::int64_t generationTime = 0;  ///< milliseconds since the epoch

  static void Visit(auto& row, auto&& column) {
    column("uuid", row.uuid);
    column("membership_uuid", row.membershipUuid);
    column("revision", row.revision);
    column("generation", row.generation);
    column("generation_uuid", row.generationUuid);
    column("generation_time", row.generationTime);
  }
};

/// A host's membership of a cluster: persisted as long as the row exists, in effect while the host
/// is up and `running`.
struct MemberRow {
  static constexpr Table kTable = {"members", "host", "cluster", "join_order",
                                   ", FOREIGN KEY (host) REFERENCES hosts ON DELETE CASCADE, "
                                   "FOREIGN KEY (cluster) REFERENCES clusters"};
  std::int64_t host = 0;
  std::string cluster;
  bool witness = false;
  std::string preferredFaultDomain;  ///< of a witness
  bool running = false;
  std::int64_t joinOrder = 0;  ///< grows in the order in which members came to run

  static void Visit(auto& row, auto&& column) {
    column("host", row.host);
    column("cluster", row.cluster);
    column("witness", row.witness);
    column("preferred_fault_domain", row.preferredFaultDomain);
    column("running", row.running);
    column("join_order", row.joinOrder);
  }
};

struct DatastoreRow {
  static constexpr Table kTable = {
      "datastores", "uuid", "cluster", "rowid",
      ", UNIQUE (cluster, name), FOREIGN KEY (cluster) REFERENCES clusters ON DELETE CASCADE"};
  std::string uuid;
  std::string cluster;
  std::string name;
  bool isDefault = false;

  static void Visit(auto& row, auto&& column) {
    column("uuid", row.uuid);
    column("cluster", row.cluster);
    column("name", row.name);
    column("is_default", row.isDefault);
  }
};

struct AgentRow {
  static constexpr Table kTable = {
      "unicast_agents", "id", "host", "id",
      ", UNIQUE (host, address, port), FOREIGN KEY (host) REFERENCES hosts ON DELETE CASCADE"};
  std::int64_t id = 0;
  std::int64_t host = 0;
  std::string nodeUuid;
  bool witness = false;
  bool supportsUnicast = false;
  std::string address;  ///< in its canonical form
  std::int64_t port = 0;
  std::string boundInterface;  ///< empty if none

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

/// An interface of the storage network: persisted as long as the row exists, in effect while
/// `running`.
struct KnicRow {
  static constexpr Table kTable = {"knics", "host, name", "host", "name", kBelongsToHost};
  std::int64_t host = 0;
  std::string name;
  std::string uuid;
  std::string agentGroup;
  std::string agentV6Group;
  std::string masterGroup;
  std::string masterV6Group;
  std::int64_t agentPort = 0;
  std::int64_t masterPort = 0;
  std::int64_t hostUnicastPort = 0;
  std::int64_t multicastTtl = 0;
  bool dovra = false;
  bool witness = false;
  bool running = false;

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

struct DiskRow {
  static constexpr Table kTable = {
      "disks", "host, device", "host", "rowid",
      ", UNIQUE (uuid), FOREIGN KEY (host) REFERENCES hosts ON DELETE CASCADE"};
  std::int64_t host = 0;
  std::string device;
  std::string uuid;   ///< empty while the disk is not claimed
  std::string group;  ///< UUID of the disk group's cache device
  std::string groupName;
  std::string checksum;
  std::int64_t formatVersion = 0;
  // The flags stand together to save padding: a listing holds thousands of rows.
  bool flash = false;
  bool capacityTag = false;  ///< flash that serves as a capacity disk
  bool mounted = false;
  bool deduplication = false;
  bool checksumOk = true;
  bool encryption = false;
  bool keyLoaded = false;
  bool failed = false;
  bool unplugged = false;

  bool IsClaimed() const { return !uuid.empty(); }
  /// Whether the disk cannot be used.
  bool IsLost() const { return failed || unplugged; }
  /// Whether the disk is the cache device of its disk group.
  bool IsCache() const { return IsClaimed() && uuid == group; }
  /// Whether the disk can hold data.
  bool IsCapacityKind() const { return !flash || capacityTag; }

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

/// The default policy of a class of objects.
struct PolicyRow {
  static constexpr Table kTable = {"policies", "host, class", "host", "class", kBelongsToHost};
  std::int64_t host = 0;
  std::string policyClass;
  std::string policy;

  static void Visit(auto& row, auto&& column) {
    column("host", row.host);
    column("class", row.policyClass);
    column("policy", row.policy);
  }
};

/// An injected fault: makes calls of an operation of the control library fail.
struct FaultRow {
  static constexpr Table kTable = {"faults", "id", "host", "id", kBelongsToHost};
  std::int64_t id = 0;
  std::int64_t host = 0;
  std::string operation;
  std::string message;
  std::int64_t passes = 0;     ///< calls that the fault spares first
  std::int64_t remaining = 0;  ///< calls that then fail
  bool late = false;           ///< an operation that changes something fails after its change

  static void Visit(auto& row, auto&& column) {
    column("id", row.id, kOptional);
    column("host", row.host);
    column("operation", row.operation);
    column("message", row.message);
    column("passes", row.passes);
    column("remaining", row.remaining);
    column("late", row.late);
  }
};

}  // namespace Lab
