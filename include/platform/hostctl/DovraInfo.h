// The control library's information objects: the host's part in the storage cluster, read and
// changed. Every operation throws `DovraCtlException` when the library refuses or fails.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/hostctl/DovraCtlException.h"
#include "platform/hostctl/DovraRecords.h"

#pragma GCC visibility push(default)

namespace HostCtl::Dovra {

class DovraInfo {
 public:
  // Callers skip null handles.
  using DiskLuns = std::vector<std::shared_ptr<DovraDiskLun>>;
  using Datastores = std::vector<std::shared_ptr<DovraDatastore>>;

  /// Fills `luns` with every disk device of the cluster that this host sees.
  static void GetDovraDisks(DiskLuns& luns);

  virtual ~DovraInfo();

  // Disks of this host, known by device name or by UUID; the library reads a UUID's text. A disk
  // group is a flash device, which stands for it, and the capacity disks behind it.

  /// Fills `info`; `luns` is what `GetDovraDisks` gave, to match device data to the UUID.
  virtual void GetDiskInfo(const Uuid& disk, const DiskLuns& luns, DovraDiskInfo& info) = 0;
  /// Partitions and formats empty disks: makes a disk group of them, or, if `ssd` has one already,
  /// adds `disks` to it.
  virtual void AddDisks(const std::string& ssd, const std::vector<std::string>& disks) = 0;
  /// Puts the group's disks back to use.
  virtual void MountDiskGroup(const std::string& ssd) = 0;
  /// The same for one capacity disk or, if it is a flash device's UUID, for the group.
  virtual void MountDiskByUuid(const std::string& uuid) = 0;
  /// The same for one disk.
  virtual void MountDisk(const std::string& disk) = 0;
  /// Takes one capacity disk from the cluster; what is still on it is lost. The mode says what is
  /// moved to other disks first: "NoAction", "EnsureObjectAccessibility" or "EvacuateAllData";
  /// empty for the library's default.
  virtual void RemoveDisk(const std::string& disk, const std::string& evacuationMode) = 0;
  /// The same for a flash device and every capacity disk behind it.
  virtual void RemoveDiskGroup(const std::string& ssd, const std::string& evacuationMode) = 0;
  /// Takes the group's disks out of use; their data stays on them.
  virtual void UnmountDiskGroup(const std::string& ssd) = 0;
  /// The same for one disk.
  virtual void UnmountDisk(const std::string& disk) = 0;
  /// The same for one capacity disk or, if it is a flash device's UUID, for the group.
  virtual void UnmountDiskByUuid(const std::string& uuid) = 0;
  /// `RemoveDisk` for a capacity disk, `RemoveDiskGroup` for a flash device.
  virtual void RemoveDiskByUuid(const std::string& uuid, const std::string& evacuationMode) = 0;
  /// Whether the service claims empty disks by itself, from the next storage event on.
  virtual void SetAutoClaimMode(bool enabled) = 0;
  virtual bool GetAutoClaimMode() = 0;

  // The cluster as this host sees it.

  /// Where a stretched cluster's witness stands when the two sites lose each other.
  virtual void SetPreferredFaultDomain(const std::string& name) = 0;
  virtual bool IsLocalNodeWitness() = 0;
  /// Which configuration of the cluster this host has.
  virtual DovraConfigGeneration GetConfigGeneration() = 0;

  // The storage network and the peers reached by unicast.

  /// Takes the interface out of the storage network for "dovra" or "witness" traffic. With `force`
  /// the storage service is told even if the interface is not configured.
  virtual void RemoveKnic(const std::string& name, bool force, const std::string& trafficType) = 0;
  /// Makes the storage service take over the changed list of agents.
  virtual void RefreshUnicastAgents() = 0;
  /// Adds a peer to those that this host reaches by unicast. `boundInterface` counts only if there
  /// is one. `extra` is for the library's own use; callers pass the empty text.
  virtual void AddUnicastAgent(const std::string& nodeUuid, bool isWitness, bool supportsUnicast,
                               const DovraIpAddress& address, std::int32_t port,
                               bool hasBoundInterface, const std::string& boundInterface,
                               const std::string& extra) = 0;
  /// Removes a peer from them. False asks the caller to follow up with `RefreshUnicastAgents`.
  virtual bool RemoveUnicastAgent(const std::string& nodeUuid, const DovraIpAddress& address,
                                  std::int32_t port) = 0;
  /// Fills `entries`, one an agent: node UUID, whether it is a witness, whether it supports
  /// unicast, address, port, bound interface, joined by ";".
  virtual void GetUnicastAgents(std::vector<std::string>& entries) = 0;
  /// Fills `witnesses` with a text for each agent that is a witness.
  virtual void GetUnicastWitnesses(std::vector<std::string>& witnesses) = 0;
  /// Puts the persisted interfaces into effect again.
  virtual void RestoreNetworkConfig() = 0;
  /// Puts the persisted membership into effect again; `boot` tells that the host is starting.
  virtual void RestoreClusterConfig(bool boot) = 0;
  /// Removes every interface from the storage network.
  virtual void ClearNetworkConfig() = 0;
  /// Removes all datastores but the default one.
  virtual void ClearDatastores() = 0;

  // Membership.

  /// Makes this host a member. A witness needs the fault domain that it prefers; other hosts give
  /// the empty text. With `wait` it returns when the host is in. `reserved` is false.
  virtual void JoinCluster(const Uuid& cluster, bool asWitness,
                           const std::string& preferredFaultDomain, bool wait, bool reserved) = 0;
  /// Makes a cluster under `uuid` with this host in it. Callers pass true and false.
  virtual void CreateCluster(const std::string& uuid, bool enable, bool reserved) = 0;
  /// `reserved` is false.
  virtual void LeaveCluster(bool reserved) = 0;
  /// The record lives as long as this object.
  virtual const DovraClusterConfig& GetClusterConfig() = 0;
  /// Puts this host into the fault domain, whose name is not empty.
  virtual void SetFaultDomain(const std::string& name) = 0;
  /// Puts this host into the default fault domain.
  virtual void ResetFaultDomain() = 0;
  /// Empty when the host is in no named fault domain.
  virtual std::string GetFaultDomainName() = 0;
  /// Marks a flash device for use as a capacity disk.
  virtual void AddCapacityFlashTag(const std::string& disk) = 0;
  virtual void RemoveCapacityFlashTag(const std::string& disk) = 0;

  // Policies and datastores. An empty datastore UUID stands for the default datastore.

  /// Removes the default policy of every class.
  virtual void ClearPolicyDefaults() = 0;
  virtual std::string GetDatastoreName(const std::string& uuid) = 0;
  virtual void SetDatastoreName(const std::string& uuid, const std::string& name) = 0;
  virtual void AddDatastore(const DovraDatastore& datastore) = 0;
  /// `reserved` is true.
  virtual void RemoveDatastore(const std::string& uuid, bool reserved) = 0;
  virtual void GetDatastores(Datastores& datastores) = 0;
  /// Whether the interface is configured for "dovra" or "witness" traffic.
  virtual bool IsKnicInUse(const std::string& name, const std::string& trafficType) = 0;
  /// Fills `disks` with the further disks that the storage service knows of, on this host or
  /// others.
  virtual void GetDiskUuids(std::vector<Uuid>& disks) = 0;
  /// Objects of the class get `policy` unless they are made with their own.
  virtual void SetPolicyDefault(const std::string& policyClass, const std::string& policy) = 0;
  virtual std::string GetPolicyDefault(const std::string& policyClass) = 0;

  // Resynchronisation, in Mbps; a throttle of 0 is none.

  virtual std::int64_t GetResyncThrottle() = 0;
  virtual void SetResyncThrottle(std::int64_t level) = 0;
  /// That of the disk group with the most to resynchronise.
  virtual std::int64_t GetResyncBandwidth() = 0;
};

/// The newer network operations; a host's control library may be too old to have them.
class DovraInfo2 : public virtual DovraInfo {
 public:
  ~DovraInfo2() override;

  /// Stores the entry in the place of any other of the same interface.
  virtual void ConfigureKnic(const DovraKnicConfig2& config) = 0;
  /// Every entry configured; the caller owns them.
  virtual std::vector<std::unique_ptr<DovraKnicConfig2>> GetKnicConfigs() = 0;
};

}  // namespace HostCtl::Dovra

#pragma GCC visibility pop
