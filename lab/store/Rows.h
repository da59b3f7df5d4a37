// The rows of the lab's store.
#pragma once

#include <cstdint>
#include <string>

namespace Lab {

/// The lab itself: one row.
struct LabRow {
  std::string uuid;
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
  std::int64_t id = 0;
  std::string name;
  std::string uuid;
  std::int64_t apiVersion = 2;  ///< 1: a control library without `DovraInfo2`
  std::string faultDomain;      ///< empty if none
  bool autoClaim = false;
  bool enteringMaintenance = false;
  std::int64_t resyncThrottle = 0;  ///< Mbps
  std::int64_t resyncDemand = 0;    ///< bandwidth used without a throttle, Mbps
  std::int64_t networkGroup = 0;    ///< a host reaches only the hosts of its group
};

struct ClusterRow {
  std::string uuid;
  std::string membershipUuid;
  std::int64_t revision = 0;    ///< of the membership
  std::int64_t generation = 0;  ///< of the configuration
  std::string generationUuid;
  std::int64_t generationTime = 0;  ///< milliseconds since the epoch
};

/// A host's membership of a cluster: persisted as long as the row exists, in effect while
/// `running`.
struct MemberRow {
  std::int64_t host = 0;
  std::string cluster;
  bool witness = false;
  std::string preferredFaultDomain;  ///< of a witness
  bool running = false;
  std::int64_t joinOrder = 0;  ///< grows in the order in which members came to run
};

struct DatastoreRow {
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
  std::string boundInterface;  ///< empty if none
};

/// An interface of the storage network: persisted as long as the row exists, in effect while
/// `running`.
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
};

/// The default policy of a class of objects.
struct PolicyRow {
  std::int64_t host = 0;
  std::string policyClass;
  std::string policy;
};

/// An injected fault: makes calls of an operation of the control library fail.
struct FaultRow {
  std::int64_t id = 0;
  std::int64_t host = 0;
  std::string operation;
  std::string message;
  std::int64_t passes = 0;     ///< calls that succeed first
  std::int64_t remaining = 0;  ///< calls that then fail
};

}  // namespace Lab
