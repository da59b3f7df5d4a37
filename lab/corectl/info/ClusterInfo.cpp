// Membership, fault domains, datastores, policies and resync.

#include <algorithm>

#include "corectl/Clusters.h"
#include "corectl/Policies.h"
#include "corectl/info/LabInfo.h"
#include "platform/corectl/DovraUtil.h"

namespace Lab {

using CoreCtl::Dovra::DovraUtil;
using HostCtl::Dovra::DovraClusterConfig;
using HostCtl::Dovra::DovraConfigGeneration;
using HostCtl::Dovra::DovraDatastore;
using HostCtl::Dovra::Uuid;

const DovraClusterConfig& LabInfo::GetClusterConfig() {
  config_ = host_.Read("GetClusterConfig", [](Store& store, const HostRow& host) {
    const auto member = FindRunningMember(store, host);
    return member ? DovraClusterConfig{true, member->cluster} : DovraClusterConfig{};
  });
  return config_;
}

bool LabInfo::IsLocalNodeWitness() {
  return host_.Read("IsLocalNodeWitness", [](Store& store, const HostRow& host) {
    return RequireRunningMember(store, host).witness;
  });
}

DovraConfigGeneration LabInfo::GetConfigGeneration() {
  return host_.Read("GetConfigGeneration", [](Store& store, const HostRow& host) {
    const auto cluster = store.FindCluster(RequireRunningMember(store, host).cluster);
    return DovraConfigGeneration{cluster->generationUuid,
                                 static_cast<std::uint64_t>(cluster->generation),
                                 static_cast<std::uint64_t>(cluster->generationTime)};
  });
}

// In the lab a host has joined when the call returns, so there is nothing to wait for.
void LabInfo::JoinCluster(const Uuid& cluster, bool asWitness,
                          const std::string& preferredFaultDomain, bool, bool) {
  host_.Change("JoinCluster", [&](Store& store, const HostRow& host) {
    Lab::JoinCluster(store, host, DovraUtil::DovraUuidToString(cluster), asWitness,
                     preferredFaultDomain);
  });
}

void LabInfo::CreateCluster(const std::string& uuid, bool, bool) {
  host_.Change("CreateCluster",
               [&](Store& store, const HostRow& host) { Lab::CreateCluster(store, host, uuid); });
}

void LabInfo::LeaveCluster(bool) {
  host_.Change("LeaveCluster", [](Store& store, HostRow& host) { Lab::LeaveCluster(store, host); });
}

void LabInfo::RestoreClusterConfig(bool boot) {
  host_.Change("RestoreClusterConfig",
               [&](Store& store, const HostRow& host) { RestoreCluster(store, host, boot); });
}

void LabInfo::SetFaultDomain(const std::string& name) {
  host_.Change("SetFaultDomain",
               [&](Store& store, HostRow& host) { Lab::SetFaultDomain(store, host, name); });
}

void LabInfo::ResetFaultDomain() {
  host_.Change("ResetFaultDomain",
               [](Store& store, HostRow& host) { Lab::SetFaultDomain(store, host, ""); });
}

std::string LabInfo::GetFaultDomainName() {
  return host_.Read("GetFaultDomainName",
                    [](Store&, const HostRow& host) { return host.faultDomain; });
}

void LabInfo::SetPreferredFaultDomain(const std::string& name) {
  host_.Change("SetPreferredFaultDomain", [&](Store& store, const HostRow& host) {
    Lab::SetPreferredFaultDomain(store, host, name);
  });
}

void LabInfo::GetDatastores(Datastores& datastores) {
  host_.Read("GetDatastores", [&](Store& store, const HostRow& host) {
    datastores.clear();
    for (const DatastoreRow& row : ListDatastores(store, host)) {
      datastores.push_back(std::make_shared<DovraDatastore>(row.uuid, row.name, row.isDefault));
    }
  });
}

std::string LabInfo::GetDatastoreName(const std::string& uuid) {
  return host_.Read("GetDatastoreName", [&](Store& store, const HostRow& host) {
    return RequireDatastore(store, host, uuid).name;
  });
}

void LabInfo::SetDatastoreName(const std::string& uuid, const std::string& name) {
  host_.Change("SetDatastoreName", [&](Store& store, const HostRow& host) {
    RenameDatastore(store, host, uuid, name);
  });
}

void LabInfo::AddDatastore(const DovraDatastore& datastore) {
  host_.Change("AddDatastore", [&](Store& store, const HostRow& host) {
    Lab::AddDatastore(store, host, datastore.GetUuid(), datastore.GetName());
  });
}

void LabInfo::RemoveDatastore(const std::string& uuid, bool) {
  host_.Change("RemoveDatastore",
               [&](Store& store, const HostRow& host) { Lab::RemoveDatastore(store, host, uuid); });
}

void LabInfo::ClearDatastores() {
  host_.Change("ClearDatastores",
               [](Store& store, const HostRow& host) { Lab::ClearDatastores(store, host); });
}

void LabInfo::SetPolicyDefault(const std::string& policyClass, const std::string& policy) {
  host_.Change("SetPolicyDefault", [&](Store& store, const HostRow& host) {
    DovraUtil::StringToDovraPolicyClass(policyClass);
    CheckPolicy(policy);
    store.SetPolicy(host.id, policyClass, policy);
  });
}

std::string LabInfo::GetPolicyDefault(const std::string& policyClass) {
  return host_.Read("GetPolicyDefault", [&](Store& store, const HostRow& host) {
    return store.GetPolicy(host.id, policyClass);
  });
}

void LabInfo::ClearPolicyDefaults() {
  host_.Change("ClearPolicyDefaults",
               [](Store& store, const HostRow& host) { store.ClearPolicies(host.id); });
}

std::int64_t LabInfo::GetResyncThrottle() {
  return host_.Read("GetResyncThrottle",
                    [](Store&, const HostRow& host) { return host.resyncThrottle; });
}

void LabInfo::SetResyncThrottle(std::int64_t level) {
  host_.Change("SetResyncThrottle", [&](Store& store, HostRow& host) {
    if (level < 0 || level > 512) {
      Refuse("The resync throttle " + std::to_string(level) + " is not between 0 and 512 Mbps.");
    }
    host.resyncThrottle = level;
    store.SaveHost(host);
  });
}

std::int64_t LabInfo::GetResyncBandwidth() {
  return host_.Read("GetResyncBandwidth", [](Store&, const HostRow& host) {
    return host.resyncThrottle == 0 ? host.resyncDemand
                                    : std::min(host.resyncDemand, host.resyncThrottle);
  });
}

}  // namespace Lab
