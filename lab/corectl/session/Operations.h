// The operations of the control library, which faults can strike.
#pragma once

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <string_view>

namespace Lab {

/// An operation and the commands below `dovra` that call it.
struct OperationRow {
  std::string_view name;
  std::string_view callers;

  constexpr bool IsCalledBy(std::string_view command) const;
};

inline constexpr std::string_view kCallerSeparator = "; ";
/// Before the commands that do not call an operation that all others call.
inline constexpr std::string_view kAllBut = "all but ";

// In the order of the library's interface.
inline constexpr OperationRow kOperations[] = {
    {"GetDovraPlugin", "all but maintenancemode cancel; trace get; trace set"},
    {"GetDovraInfo", "all but maintenancemode cancel; trace get; trace set"},
    {"GetDovraDisks", "storage list"},
    {"GetDiskInfo", "storage list"},
    {"AddDisks", "storage add"},
    {"MountDiskGroup", "storage diskgroup mount"},
    {"MountDiskByUuid", "storage diskgroup mount"},
    {"MountDisk", "storage diskgroup mount"},
    {"RemoveDisk", "storage remove"},
    {"RemoveDiskGroup", "storage remove"},
    {"UnmountDiskGroup", "storage diskgroup unmount"},
    {"UnmountDisk", "storage diskgroup unmount"},
    {"UnmountDiskByUuid", "storage diskgroup unmount"},
    {"RemoveDiskByUuid", "storage remove"},
    {"SetAutoClaimMode", "storage automode set"},
    {"GetAutoClaimMode", "storage automode get"},
    {"SetPreferredFaultDomain", "cluster preferredfaultdomain set"},
    {"IsLocalNodeWitness", "cluster get"},
    {"GetConfigGeneration", "cluster get"},
    {"RemoveKnic", "network ip remove; network ipv4 remove; network remove"},
    {"RefreshUnicastAgents",
     "cluster unicastagent add; cluster unicastagent clear; cluster unicastagent remove"},
    {"AddUnicastAgent", "cluster unicastagent add"},
    {"RemoveUnicastAgent", "cluster unicastagent clear; cluster unicastagent remove"},
    {"GetUnicastAgents", "cluster unicastagent clear; cluster unicastagent list"},
    {"GetUnicastWitnesses", "cluster unicastagent add"},
    {"RestoreNetworkConfig", "network restore"},
    {"RestoreClusterConfig", "cluster restore"},
    {"ClearNetworkConfig", "network clear"},
    {"ClearDatastores", "datastore clear"},
    {"JoinCluster", "cluster join"},
    {"CreateCluster", "cluster new"},
    {"LeaveCluster", "cluster leave"},
    {"GetClusterConfig",
     "cluster get; cluster join; cluster leave; cluster new; cluster preferredfaultdomain get; "
     "cluster unicastagent clear; cluster unicastagent list; faultdomain get"},
    {"SetFaultDomain", "faultdomain set"},
    {"ResetFaultDomain", "faultdomain reset; faultdomain set"},
    {"GetFaultDomainName", "faultdomain get"},
    {"AddCapacityFlashTag", "storage tag add"},
    {"RemoveCapacityFlashTag", "storage tag remove"},
    {"ClearPolicyDefaults", "policy cleardefault"},
    {"GetDatastoreName", "datastore name get"},
    {"SetDatastoreName", "datastore name set"},
    {"AddDatastore", "datastore add"},
    {"RemoveDatastore", "datastore remove"},
    {"GetDatastores", "cluster leave; datastore list"},
    {"IsKnicInUse", "network ip add; network ip set; network ipv4 add; network ipv4 set"},
    {"GetDiskUuids", "storage list"},
    {"SetPolicyDefault", "policy setdefault"},
    {"GetPolicyDefault", "policy getdefault"},
    {"GetResyncThrottle", "resync throttle get"},
    {"SetResyncThrottle", "resync throttle set"},
    {"GetResyncBandwidth", "resync bandwidth get"},
    {"ConfigureKnic", "network ip add; network ip set; network ipv4 add; network ipv4 set"},
    {"GetKnicConfigs", "network ip set; network ipv4 set; network list"},
    // The utilities.
    {"GetInfoFromTavdir", "cluster get"},
    {"GetUnicastMode", "cluster get"},
    {"GetFormattedSystemDateTime", "cluster get"},
    {"IsWitnessNode",
     "cluster preferredfaultdomain set; cluster unicastagent add; cluster unicastagent clear; "
     "cluster unicastagent list; cluster unicastagent remove"},
    {"IsInStretchedCluster", "cluster preferredfaultdomain get"},
    {"GetFaultDomainId", "faultdomain get"},
    {"GetPreferredFaultDomainInfo", "cluster preferredfaultdomain get"},
    {"DecomCancel", "maintenancemode cancel"},
    {"DovraExec", "trace get; trace set"},
};

constexpr bool OperationRow::IsCalledBy(std::string_view command) const {
  const bool isNegated = callers.starts_with(kAllBut);
  std::string_view rest = callers.substr(isNegated ? kAllBut.size() : 0);
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(kCallerSeparator), rest.size());
    if (rest.substr(0, end) == command) return !isNegated;
    rest.remove_prefix(std::min(end + kCallerSeparator.size(), rest.size()));
  }
  return isNegated;
}

/// An operation by its name. An unknown name does not compile.
class Operation {
 public:
  template <std::size_t size>
  consteval Operation(const char (&name)[size]) : name_(name) {
    if (std::ranges::find(kOperations, name_, &OperationRow::name) == std::end(kOperations))
      throw std::logic_error(name);
  }

  constexpr std::string_view GetName() const { return name_; }

 private:
  std::string_view name_;
};

}  // namespace Lab
