// The lab's store: one SQLite file that holds all hosts and clusters of a lab. It keeps rows and
// their integrity; what may be done to them is decided by those who call it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/Sqlite.h"

namespace Lab {

struct HostRow {
  std::int64_t id = 0;
  std::string name;
  std::string uuid;
  std::int64_t apiVersion = 2;  ///< 1: a control library without `DovraInfo2`
  std::string faultDomain;      ///< empty: none
  bool autoClaim = false;
  bool enteringMaintenance = false;
  std::int64_t resyncThrottle = 0;  ///< Mbps
  std::int64_t resyncDemand = 0;    ///< what resync would use unthrottled, Mbps
};

struct ClusterRow {
  std::string uuid;
  std::string membershipUuid;
  std::int64_t revision = 0;    ///< of the membership
  std::int64_t generation = 0;  ///< of the configuration
  std::string generationUuid;
  std::int64_t generationTime = 0;  ///< milliseconds since the epoch
};

/// A host's part in a cluster. It is persisted as long as the row stands, and in effect while
/// `running` is set.
struct MemberRow {
  std::int64_t host = 0;
  std::string cluster;
  bool witness = false;
  std::string preferredFaultDomain;  ///< a witness's only
  bool running = false;
  std::int64_t order = 0;  ///< in which the members came to run

  // Of the host, filled when read.
  std::string hostUuid;
  std::string hostFaultDomain;
};

struct DatastoreRow {
  std::string uuid;
  std::string cluster;
  std::string name;
  bool isDefault = false;
};

struct AgentRow {
  std::int64_t id = 0;
  std::string nodeUuid;
  bool witness = false;
  bool supportsUnicast = false;
  std::string address;
  std::int64_t port = 0;
  std::string boundInterface;  ///< empty: none
};

/// An interface of the storage network. It is persisted as long as the row stands, and in effect
/// while `running` is set.
struct KnicRow {
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
};

struct DiskRow {
  std::int64_t id = 0;
  std::int64_t host = 0;
  std::string device;
  bool flash = false;
  bool capacityTag = false;  ///< flash that serves as a capacity disk
  std::string uuid;          ///< empty while the disk is not claimed
  std::string group;         ///< UUID of the disk group's flash device
  std::string groupName;
  bool mounted = false;
  std::int64_t formatVersion = 0;
  bool deduplication = false;
  std::string checksum;
  bool checksumOk = true;
  bool encryption = false;
  bool keyLoaded = false;

  bool IsClaimed() const { return !uuid.empty(); }
  /// Whether the disk fronts its disk group.
  bool IsCache() const { return IsClaimed() && uuid == group; }
  /// Whether the disk is of the kind that holds data.
  bool IsCapacityKind() const { return !flash || capacityTag; }
};

struct FaultRow {
  std::string host;
  std::string operation;
  std::string message;
  std::int64_t remaining = 0;
};

class Store {
 public:
  /// Opens the lab in `folder`, which is made, with one host, if it is not there yet. Throws
  /// `LabError` when the folder or what is in it cannot serve as a lab; nothing is changed then.
  explicit Store(const std::filesystem::path& folder);

  const std::filesystem::path& GetFolder() const { return folder_; }

  /// Back to a lab as it was when new.
  void Reset();

  // Hosts. Names and UUIDs are unique in the lab.
  std::vector<HostRow> ListHosts();
  std::optional<HostRow> FindHost(std::string_view name);
  /// Adds a host with its interfaces and its empty disks, and returns its row.
  HostRow AddHost(const std::string& name);
  /// Writes all but the name and the UUID.
  void SaveHost(const HostRow& host);
  /// Removes the host and all that is its own.
  void RemoveHost(std::int64_t host);
  std::vector<std::string> ListInterfaces(std::int64_t host);

  // Clusters.
  std::optional<ClusterRow> FindCluster(std::string_view uuid);
  void SaveCluster(const ClusterRow& cluster);
  /// Removes the cluster and its datastores.
  void RemoveCluster(std::string_view uuid);
  std::optional<MemberRow> FindMember(std::int64_t host);
  /// In the order in which they came to run.
  std::vector<MemberRow> ListMembers(std::string_view cluster);
  void SaveMember(const MemberRow& member);
  void RemoveMember(std::int64_t host);

  // Datastores. Names are unique in a cluster, UUIDs in the lab.
  std::vector<DatastoreRow> ListDatastores(std::string_view cluster);
  bool HasDatastore(std::string_view uuid);
  void AddDatastore(const DatastoreRow& datastore);
  void RenameDatastore(std::string_view uuid, std::string_view name);
  void RemoveDatastore(std::string_view uuid);

  // Unicast agents and interfaces of a host.
  std::vector<AgentRow> ListAgents(std::int64_t host);
  void AddAgent(std::int64_t host, const AgentRow& agent);
  void RemoveAgent(std::int64_t agent);
  std::vector<KnicRow> ListKnics(std::int64_t host);
  void SaveKnic(std::int64_t host, const KnicRow& knic);
  void RemoveKnic(std::int64_t host, std::string_view name);
  void ClearKnics(std::int64_t host);
  /// Puts every persisted interface into effect, or out of it.
  void SetKnicsRunning(std::int64_t host, bool running);

  // Disks. Devices are unique on a host, UUIDs in the lab.
  std::vector<DiskRow> ListDisks(std::int64_t host);
  std::optional<DiskRow> FindDisk(std::int64_t host, std::string_view device);
  std::optional<DiskRow> FindDiskByUuid(std::string_view uuid);
  /// The claimed disks of the host and of all hosts that run in the cluster.
  std::vector<DiskRow> ListKnownDisks(std::int64_t host, std::string_view cluster);
  /// The UUIDs of the claimed disks of all hosts that run in the cluster.
  std::vector<std::string> ListClusterDiskUuids(std::string_view cluster);
  void AddDisk(const DiskRow& disk);
  /// Writes all but the host and the device.
  void SaveDisk(const DiskRow& disk);

  // Default policies of a host.
  std::string GetPolicy(std::int64_t host, std::string_view policyClass);
  void SetPolicy(std::int64_t host, std::string_view policyClass, std::string_view policy);
  void ClearPolicies(std::int64_t host);

  // Faults: calls of a control-library operation on a host that are to fail.
  std::vector<FaultRow> ListFaults();
  std::vector<std::string> ListFaultyOperations(std::int64_t host);
  void AddFault(std::int64_t host, const FaultRow& fault);
  void ClearFaults();
  /// Uses up one failure of the operation and returns its message; nothing if none is left.
  std::optional<std::string> TakeFault(std::int64_t host, std::string_view operation);

  /// A transaction: it is undone unless it is committed.
  class Transaction {
   public:
    enum class Kind { kRead, kWrite };
    Transaction(Store& store, Kind kind);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void Commit();

   private:
    Database& database_;
  };

 private:
  void Make(const std::filesystem::path& file);
  /// Brings the store in the making one step further; returns whether it was the last.
  bool TakeStep(const std::filesystem::path& draft, const std::filesystem::path& file);

  std::filesystem::path folder_;
  std::optional<Database> database_;
};

}  // namespace Lab
