// The control library's information objects: the host's part in the storage cluster, read and
// changed. Every operation throws `DovraCtlException` when the library refuses or fails.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/hostctl/DovraCtlException.h"
#include "platform/hostctl/DovraRecords.h"

namespace HostCtl::Dovra {

class [[gnu::visibility("default")]] DovraInfo {
 public:
  using DiskLuns = std::vector<std::shared_ptr<DovraDiskLun>>;
  using Datastores = std::vector<std::shared_ptr<DovraDatastore>>;

  /// Fills `luns` with every disk device of the cluster that this host sees.
  static void GetDovraDisks(DiskLuns & luns);

  virtual ~DovraInfo();

  // Disks. A UUID given as text is read by the library.

  /// Fills `info`; `luns` is what `GetDovraDisks` gave, to match device data to the UUID.
  virtual void GetDiskInfo(const Uuid& disk, const DiskLuns& luns, DovraDiskInfo& info) = 0;
  /// Makes a disk group of a flash device and capacity disks, or adds the disks to its group.
  virtual void AddDisks(const std::string& ssd, const std::vector<std::string>& disks) = 0;
  virtual void MountDiskGroup(const std::string& ssd) = 0;
  virtual void MountDiskByUuid(const std::string& uuid) = 0;
  virtual void MountDisk(const std::string& disk) = 0;
  /// Evacuation modes: "NoAction", "EnsureObjectAccessibility", "EvacuateAllData"; empty for the
  /// library's default.
  virtual void RemoveDisk(const std::string& disk, const std::string& evacuationMode) = 0;
  virtual void RemoveDiskGroup(const std::string& ssd, const std::string& evacuationMode) = 0;
  virtual void UnmountDiskGroup(const std::string& ssd) = 0;
  virtual void UnmountDisk(const std::string& disk) = 0;
  virtual void UnmountDiskByUuid(const std::string& uuid) = 0;
  virtual void RemoveDiskByUuid(const std::string& uuid, const std::string& evacuationMode) = 0;
  virtual void SetAutoClaimMode(bool enabled) = 0;
  virtual bool GetAutoClaimMode() = 0;

  // The cluster as this host sees it.

  virtual void SetPreferredFaultDomain(const std::string& name) = 0;
  virtual bool IsLocalNodeWitness() = 0;
  virtual DovraConfigGeneration GetConfigGeneration() = 0;

  // The storage network and the peers reached by unicast.

  /// With `force` the storage service is told even if the interface is not configured.
  virtual void RemoveKnic(const std::string& name, bool force, const std::string& trafficType) = 0;
  virtual void RefreshUnicastAgents() = 0;
  /// `extra` is for the library's own use; callers pass the empty text.
  virtual void AddUnicastAgent(const std::string& nodeUuid, bool isWitness, bool supportsUnicast,
                               const DovraIpAddress& address, std::int32_t port,
                               bool hasBoundInterface, const std::string& boundInterface,
                               const std::string& extra) = 0;
  /// False asks the caller to follow up with `RefreshUnicastAgents`.
  virtual bool RemoveUnicastAgent(const std::string& nodeUuid, const DovraIpAddress& address,
                                  std::int32_t port) = 0;
  /// One entry an agent: six fields joined by ";".
  virtual void GetUnicastAgents(std::vector<std::string> & entries) = 0;
  virtual void GetUnicastWitnesses(std::vector<std::string> & witnesses) = 0;
  virtual void RestoreNetworkConfig() = 0;
  virtual void RestoreClusterConfig(bool boot) = 0;
  virtual void ClearNetworkConfig() = 0;
  /// Removes all datastores but the default one.
  virtual void ClearDatastores() = 0;

  // Membership.

  virtual void JoinCluster(const Uuid& cluster, bool asWitness,
                           const std::string& preferredFaultDomain, bool wait, bool reserved) = 0;
  virtual void CreateCluster(const std::string& uuid, bool enable, bool reserved) = 0;
  virtual void LeaveCluster(bool reserved) = 0;
  /// The record lives as long as this object.
  virtual const DovraClusterConfig& GetClusterConfig() = 0;
  virtual void SetFaultDomain(const std::string& name) = 0;
  virtual void ResetFaultDomain() = 0;
  /// Empty when the host is in no named fault domain.
  virtual std::string GetFaultDomainName() = 0;
  virtual void AddCapacityFlashTag(const std::string& disk) = 0;
  virtual void RemoveCapacityFlashTag(const std::string& disk) = 0;

  // Policies and datastores. An empty datastore UUID stands for the default datastore.

  virtual void ClearPolicyDefaults() = 0;
  virtual std::string GetDatastoreName(const std::string& uuid) = 0;
  virtual void SetDatastoreName(const std::string& uuid, const std::string& name) = 0;
  virtual void AddDatastore(const DovraDatastore& datastore) = 0;
  virtual void RemoveDatastore(const std::string& uuid, bool reserved) = 0;
  virtual void GetDatastores(Datastores & datastores) = 0;
  virtual bool IsKnicInUse(const std::string& name, const std::string& trafficType) = 0;
  /// The further disks that the storage service knows of, on this host or others.
  virtual void GetDiskUuids(std::vector<Uuid> & disks) = 0;
  virtual void SetPolicyDefault(const std::string& policyClass, const std::string& policy) = 0;
  virtual std::string GetPolicyDefault(const std::string& policyClass) = 0;

  // Resynchronisation, in Mbps; a throttle of 0 is none.

  virtual std::int64_t GetResyncThrottle() = 0;
  virtual void SetResyncThrottle(std::int64_t level) = 0;
  virtual std::int64_t GetResyncBandwidth() = 0;
};

/// The newer network operations; a host's control library may be too old to have them.
class [[gnu::visibility("default")]] DovraInfo2 : public virtual DovraInfo {
 public:
  ~DovraInfo2() override;

  /// Stores the entry in the place of any other of the same interface.
  virtual void ConfigureKnic(const DovraKnicConfig2& config) = 0;
  virtual std::vector<std::unique_ptr<DovraKnicConfig2>> GetKnicConfigs() = 0;
};

}  // namespace HostCtl::Dovra
