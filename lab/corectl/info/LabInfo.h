// The control library's information objects over the lab's store. Each change is one
// transaction.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "corectl/session/Session.h"
#include "platform/hostctl/DovraInfo.h"

namespace Lab {

class LabInfo : public virtual HostCtl::Dovra::DovraInfo {
 public:
  explicit LabInfo(Session& host) : host_(host) {}

  void GetDiskInfo(const HostCtl::Dovra::Uuid& uuid, const DiskLuns& luns,
                   HostCtl::Dovra::DovraDiskInfo& info) override;
  void AddDisks(const std::string& ssd, const std::vector<std::string>& disks) override;
  void MountDiskGroup(const std::string& ssd) override;
  void MountDiskByUuid(const std::string& uuid) override;
  void MountDisk(const std::string& disk) override;
  void RemoveDisk(const std::string& disk, const std::string& evacuationMode) override;
  void RemoveDiskGroup(const std::string& ssd, const std::string& evacuationMode) override;
  void UnmountDiskGroup(const std::string& ssd) override;
  void UnmountDisk(const std::string& disk) override;
  void UnmountDiskByUuid(const std::string& uuid) override;
  void RemoveDiskByUuid(const std::string& uuid, const std::string& evacuationMode) override;
  void SetAutoClaimMode(bool enabled) override;
  bool GetAutoClaimMode() override;
  void SetPreferredFaultDomain(const std::string& name) override;
  bool IsLocalNodeWitness() override;
  HostCtl::Dovra::DovraConfigGeneration GetConfigGeneration() override;
  void RemoveKnic(const std::string& name, bool force, const std::string& trafficType) override;
  void RefreshUnicastAgents() override;
  void AddUnicastAgent(const std::string& nodeUuid, bool isWitness, bool supportsUnicast,
                       const HostCtl::Dovra::DovraIpAddress& address, std::int32_t port,
                       bool hasBoundInterface, const std::string& boundInterface,
                       const std::string& extra) override;
  bool RemoveUnicastAgent(const std::string& nodeUuid,
                          const HostCtl::Dovra::DovraIpAddress& address,
                          std::int32_t port) override;
  void GetUnicastAgents(std::vector<std::string>& entries) override;
  void GetUnicastWitnesses(std::vector<std::string>& witnesses) override;
  void RestoreNetworkConfig() override;
  void RestoreClusterConfig(bool boot) override;
  void ClearNetworkConfig() override;
  void ClearDatastores() override;
  void JoinCluster(const HostCtl::Dovra::Uuid& cluster, bool asWitness,
                   const std::string& preferredFaultDomain, bool wait, bool reserved) override;
  void CreateCluster(const std::string& uuid, bool enable, bool reserved) override;
  void LeaveCluster(bool reserved) override;
  const HostCtl::Dovra::DovraClusterConfig& GetClusterConfig() override;
  void SetFaultDomain(const std::string& name) override;
  void ResetFaultDomain() override;
  std::string GetFaultDomainName() override;
  void AddCapacityFlashTag(const std::string& disk) override;
  void RemoveCapacityFlashTag(const std::string& disk) override;
  void ClearPolicyDefaults() override;
  std::string GetDatastoreName(const std::string& uuid) override;
  void SetDatastoreName(const std::string& uuid, const std::string& name) override;
  void AddDatastore(const HostCtl::Dovra::DovraDatastore& datastore) override;
  void RemoveDatastore(const std::string& uuid, bool reserved) override;
  void GetDatastores(Datastores& datastores) override;
  bool IsKnicInUse(const std::string& name, const std::string& trafficType) override;
  void GetDiskUuids(std::vector<HostCtl::Dovra::Uuid>& disks) override;
  void SetPolicyDefault(const std::string& policyClass, const std::string& policy) override;
  std::string GetPolicyDefault(const std::string& policyClass) override;
  std::int64_t GetResyncThrottle() override;
  void SetResyncThrottle(std::int64_t level) override;
  std::int64_t GetResyncBandwidth() override;

 protected:
  Session& host_;

 private:
  using FindDisk = DiskRow (*)(Store&, const HostRow&, const std::string& name);
  void ChangeMounted(Operation operation, FindDisk find, const std::string& name, bool mounted);
  void Remove(Operation operation, FindDisk find, const std::string& name,
              const std::string& evacuationMode,
              void (*rule)(Store&, const HostRow&, const DiskRow&));

  HostCtl::Dovra::DovraClusterConfig config_;
  std::shared_ptr<DiskView> diskView_;  // of the current listing
};

class LabInfo2 final : public LabInfo, public HostCtl::Dovra::DovraInfo2 {
 public:
  using LabInfo::LabInfo;

  void ConfigureKnic(const HostCtl::Dovra::DovraKnicConfig2& config) override;
  std::vector<std::unique_ptr<HostCtl::Dovra::DovraKnicConfig2>> GetKnicConfigs() override;
};

}  // namespace Lab
