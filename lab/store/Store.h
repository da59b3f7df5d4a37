// The lab's store: one SQLite file that holds all hosts and clusters of a lab. It keeps rows and
// their integrity; what may be done to them is decided by those who call it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/Sqlite.h"

namespace Lab {

/// The lab as such: one row.
struct LabRow {
  std::string uuid;
};

inline constexpr std::size_t kMaxHostName = 64;
/// Hosts' names are names of folders too: letters, digits, ".", "_" and "-", the first of them a
/// letter, a digit or "_".
bool IsHostName(const std::string& name);

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
  std::int64_t networkGroup = 0;    ///< hosts reach those of the same group only
};

struct InterfaceRow {
  std::int64_t host = 0;
  std::string name;
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
  std::int64_t place = 0;  ///< in the order in which the members came to run
};

struct DatastoreRow {
  std::int64_t id = 0;
  std::string uuid;
  std::string cluster;
  std::string name;
  bool isDefault = false;
};

struct AgentRow {
  std::int64_t id = 0;
  std::int64_t host = 0;
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
};

struct DiskRow {
  std::int64_t id = 0;
  std::int64_t host = 0;
  std::string device;
  std::string uuid;   ///< empty while the disk is not claimed
  std::string group;  ///< UUID of the disk group's flash device
  std::string groupName;
  std::string checksum;
  std::int64_t formatVersion = 0;
  // Together, since listings hold many thousands of rows.
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
  /// Whether the disk cannot be used as it is.
  bool IsLost() const { return failed || unplugged; }
  /// Whether the disk fronts its disk group.
  bool IsCache() const { return IsClaimed() && uuid == group; }
  /// Whether the disk is of the kind that holds data.
  bool IsCapacityKind() const { return !flash || capacityTag; }
};

/// The default policy of a class of objects.
struct PolicyRow {
  std::int64_t host = 0;
  std::string policyClass;
  std::string policy;
};

/// Calls of an operation of the control library that are to fail.
struct FaultRow {
  std::int64_t id = 0;
  std::int64_t host = 0;
  std::string operation;
  std::string message;
  std::int64_t passes = 0;     ///< calls that are let through first
  std::int64_t remaining = 0;  ///< calls that fail then
};

class Store;

/// What a new lab is to hold besides its tables.
struct NewLab {
  std::function<void(Store&)> fill;    ///< makes the first hosts
  std::function<void(Store&)> settle;  ///< what is left to do once they are sure to be there
};

class Store {
 public:
  /// Opens the lab in `folder`, which is made if it is not there yet. Throws `HostError` when the
  /// folder or what is in it cannot serve as a lab; nothing is changed then.
  Store(const std::filesystem::path& folder, const NewLab& newLab);

  /// Whether this is still what opening it anew would lead to. Throws `HostError` where that would.
  bool IsCurrent();

  const std::filesystem::path& GetFolder() const { return folder_; }

  /// Throws the `HostError` that says that rows contradict each other.
  [[noreturn]] void FailDamaged(const std::string& what) const;

  /// Writes the row in the place of the one with its key, if there is one; otherwise it is added,
  /// and gets an id if it is of a kind that has one.
  template <class Row>
  void Save(const Row& row);

  /// Made with the lab, and kept by its copies.
  std::string GetLabUuid();
  /// Removes every host and cluster.
  void Clear();

  // Hosts. Names and UUIDs are unique in the lab.
  std::vector<HostRow> ListHosts();
  std::optional<HostRow> FindHost(std::string_view name);
  std::optional<HostRow> FindHost(std::int64_t id);
  /// Removes the host and all that is its own.
  void RemoveHost(std::int64_t host);
  std::vector<InterfaceRow> ListInterfaces(std::int64_t host);

  // Clusters.
  std::optional<ClusterRow> FindCluster(std::string_view uuid);
  /// Removes the cluster and its datastores.
  void RemoveCluster(std::string_view uuid);
  std::optional<MemberRow> FindMember(std::int64_t host);
  /// In the order of their places.
  std::vector<MemberRow> ListMembers(std::string_view cluster);
  /// Those of the cluster that the host is in, itself among them.
  std::vector<MemberRow> ListMembers(std::int64_t host);
  void RemoveMember(std::int64_t host);

  // Datastores, in the order in which they were added. Names are unique in a cluster, UUIDs in the
  // lab.
  std::vector<DatastoreRow> ListDatastores(std::string_view cluster);
  std::optional<DatastoreRow> FindDatastore(std::string_view uuid);
  void RemoveDatastore(std::string_view uuid);

  // Unicast agents and interfaces of a host.
  bool HasAgents(std::int64_t host);
  std::vector<AgentRow> ListAgents(std::int64_t host);
  void RemoveAgent(std::int64_t agent);
  std::vector<KnicRow> ListKnics(std::int64_t host);
  std::optional<KnicRow> FindKnic(std::int64_t host, std::string_view name);
  void RemoveKnic(std::int64_t host, std::string_view name);
  void ClearKnics(std::int64_t host);
  /// Puts every persisted interface into effect, or out of it.
  void SetKnicsRunning(std::int64_t host, bool running);

  // Disks. Devices are unique on a host, UUIDs in the lab.
  std::vector<DiskRow> ListDisks(std::int64_t host);
  /// Those of all hosts that are in use, in the order of their UUIDs.
  std::vector<DiskRow> ListClaimedDisks();
  /// The disks of a group, its flash device among them.
  std::vector<DiskRow> ListGroup(std::int64_t host, std::string_view group);
  std::optional<DiskRow> FindDisk(std::int64_t host, std::string_view device);
  std::optional<DiskRow> FindDiskByUuid(std::string_view uuid);

  // Default policies of a host.
  std::optional<PolicyRow> FindPolicy(std::int64_t host, std::string_view policyClass);
  void ClearPolicies(std::int64_t host);

  // Faults of a host, in the order in which they were added.
  bool HasFaults(std::int64_t host);
  std::vector<FaultRow> ListFaults(std::int64_t host);
  void RemoveFault(std::int64_t fault);

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
  std::filesystem::path GetFile() const;
  void RequireTrust() const;
  /// Throws `HostError` if the file that was opened is not a store that can be used.
  void Check();
  void Make(const NewLab& newLab);
  /// Brings the store in the making one step further; returns whether it was the last.
  bool TakeStep(const NewLab& newLab);

  /// The names of a host end up in paths.
  void CheckHost(const HostRow& host) const;

  std::filesystem::path folder_;
  std::optional<Database> database_;
};

}  // namespace Lab
