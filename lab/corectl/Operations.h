// The control library's operations, on which faults can be set.
#pragma once

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <string_view>

namespace Lab {

/// In the order of the library's interface.

inline constexpr const char* kOperations[] = {
    "GetDovraPlugin",
    "GetDovraInfo",
    "GetDovraDisks",
    "GetDiskInfo",
    "AddDisks",
    "MountDiskGroup",
    "MountDiskByUuid",
    "MountDisk",
    "RemoveDisk",
    "RemoveDiskGroup",
    "UnmountDiskGroup",
    "UnmountDisk",
    "UnmountDiskByUuid",
    "RemoveDiskByUuid",
    "SetAutoClaimMode",
    "GetAutoClaimMode",
    "SetPreferredFaultDomain",
    "IsLocalNodeWitness",
    "GetConfigGeneration",
    "RemoveKnic",
    "RefreshUnicastAgents",
    "AddUnicastAgent",
    "RemoveUnicastAgent",
    "GetUnicastAgents",
    "GetUnicastWitnesses",
    "RestoreNetworkConfig",
    "RestoreClusterConfig",
    "ClearNetworkConfig",
    "ClearDatastores",
    "JoinCluster",
    "CreateCluster",
    "LeaveCluster",
    "GetClusterConfig",
    "SetFaultDomain",
    "ResetFaultDomain",
    "GetFaultDomainName",
    "AddCapacityFlashTag",
    "RemoveCapacityFlashTag",
    "ClearPolicyDefaults",
    "GetDatastoreName",
    "SetDatastoreName",
    "AddDatastore",
    "RemoveDatastore",
    "GetDatastores",
    "IsKnicInUse",
    "GetDiskUuids",
    "SetPolicyDefault",
    "GetPolicyDefault",
    "GetResyncThrottle",
    "SetResyncThrottle",
    "GetResyncBandwidth",
    "ConfigureKnic",
    "GetKnicConfigs",
    // The utilities.
    "GetInfoFromTavdir",
    "GetUnicastMode",
    "GetFormattedSystemDateTime",
    "IsWitnessNode",
    "IsInStretchedCluster",
    "GetFaultDomainId",
    "GetPreferredFaultDomainInfo",
    "DecomCancel",
    "DovraExec",
};

/// One of them, written as its name. A name that is none does not compile, so that no fault can be
/// waited for in vain.
class Operation {
 public:
  template <std::size_t size>
  consteval Operation(const char (&name)[size]) : name_(name) {
    if (std::ranges::find(kOperations, name_) == std::end(kOperations))
      throw std::logic_error(name);
  }

  constexpr std::string_view GetName() const { return name_; }

 private:
  std::string_view name_;
};

}  // namespace Lab
