#include "RecordingLibrary.h"

#include <gtest/gtest.h>

#include "platform/corectl/DovraUtil.h"

namespace Testing {

namespace {

RecordingLibrary* living = nullptr;

std::string Text(bool value) {
  return value ? "true" : "false";
}
std::string Text(std::int64_t value) {
  return std::to_string(value);
}
std::string Text(const HostCtl::Dovra::DovraIpAddress& address) {
  return (address.isIpv6 ? "v6 " : "v4 ") + address.GetStringAddress();
}
std::string Text(const std::vector<std::string>& values) {
  std::string text;
  for (const auto& value : values) text += (&value == &values.front() ? "" : ", ") + value;
  return "[" + text + "]";
}
std::string Text(const HostCtl::Dovra::Uuid& uuid) {
  return CoreCtl::Dovra::DovraUtil::DovraUuidToString(uuid);
}

}  // namespace

RecordingLibrary& RecordingLibrary::Get() {
  return *living;
}
RecordingLibrary::RecordingLibrary() {
  living = this;
}
RecordingLibrary::~RecordingLibrary() {
  EXPECT_EQ(liveObjects, 0) << "an object of the control library was not released";
  living = nullptr;
}

void RecordingLibrary::Record(const std::string& operation,
                              const std::vector<std::string>& arguments) {
  const std::string list = Text(arguments);
  calls.push_back(operation + "(" + list.substr(1, list.size() - 2) + ")");
  if (const auto exception = exceptions.find(calls.size() - 1); exception != exceptions.end()) {
    std::rethrow_exception(exception->second);
  }
  if (const auto failure = failures.find(operation); failure != failures.end()) {
    throw HostCtl::Lib::Dovra::DovraCtlException(failure->second);
  }
}

namespace {

using namespace HostCtl::Dovra;
using Strings = std::vector<std::string>;

RecordingLibrary& Library() {
  return RecordingLibrary::Get();
}

/// Counts the objects that the commands own.
struct Counted {
  Counted() { ++Library().liveObjects; }
  ~Counted() { --Library().liveObjects; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;
};

class RecordingInfo : public virtual DovraInfo {
 public:
  void GetDiskInfo(const Uuid& disk, const DiskLuns& luns, DovraDiskInfo& info) override {
    Library().Record("GetDiskInfo", {Text(disk), Text(static_cast<std::int64_t>(luns.size()))});
    const auto known = Library().diskInfos.find(Text(disk));
    if (known != Library().diskInfos.end()) info = known->second;
  }
  void AddDisks(const std::string& ssd, const Strings& disks) override {
    Library().Record("AddDisks", {ssd, Text(disks)});
  }
  void MountDiskGroup(const std::string& ssd) override {
    Library().Record("MountDiskGroup", {ssd});
  }
  void MountDiskByUuid(const std::string& u) override { Library().Record("MountDiskByUuid", {u}); }
  void MountDisk(const std::string& disk) override { Library().Record("MountDisk", {disk}); }
  void RemoveDisk(const std::string& disk, const std::string& mode) override {
    Library().Record("RemoveDisk", {disk, mode});
  }
  void RemoveDiskGroup(const std::string& ssd, const std::string& mode) override {
    Library().Record("RemoveDiskGroup", {ssd, mode});
  }
  void UnmountDiskGroup(const std::string& ssd) override {
    Library().Record("UnmountDiskGroup", {ssd});
  }
  void UnmountDisk(const std::string& disk) override { Library().Record("UnmountDisk", {disk}); }
  void UnmountDiskByUuid(const std::string& u) override {
    Library().Record("UnmountDiskByUuid", {u});
  }
  void RemoveDiskByUuid(const std::string& uuid, const std::string& mode) override {
    Library().Record("RemoveDiskByUuid", {uuid, mode});
  }
  void SetAutoClaimMode(bool enabled) override {
    Library().Record("SetAutoClaimMode", {Text(enabled)});
  }
  bool GetAutoClaimMode() override {
    Library().Record("GetAutoClaimMode");
    return Library().autoClaim;
  }
  void SetPreferredFaultDomain(const std::string& name) override {
    Library().Record("SetPreferredFaultDomain", {name});
  }
  bool IsLocalNodeWitness() override {
    Library().Record("IsLocalNodeWitness");
    return Library().isWitness;
  }
  DovraConfigGeneration GetConfigGeneration() override {
    Library().Record("GetConfigGeneration");
    return Library().generation;
  }
  void RemoveKnic(const std::string& name, bool force, const std::string& traffic) override {
    Library().Record("RemoveKnic", {name, Text(force), traffic});
  }
  void RefreshUnicastAgents() override { Library().Record("RefreshUnicastAgents"); }
  void AddUnicastAgent(const std::string& uuid, bool witness, bool unicast,
                       const DovraIpAddress& address, std::int32_t port, bool hasInterface,
                       const std::string& interface, const std::string& extra) override {
    Library().Record("AddUnicastAgent",
                     {uuid, Text(witness), Text(unicast), Text(address),
                      Text(static_cast<std::int64_t>(port)), Text(hasInterface), interface, extra});
  }
  bool RemoveUnicastAgent(const std::string& uuid, const DovraIpAddress& address,
                          std::int32_t port) override {
    Library().Record("RemoveUnicastAgent",
                     {uuid, Text(address), Text(static_cast<std::int64_t>(port))});
    return Library().removeUnicastAgentResult;
  }
  void GetUnicastAgents(Strings& entries) override {
    Library().Record("GetUnicastAgents");
    entries = Library().unicastAgents;
  }
  void GetUnicastWitnesses(Strings& witnesses) override {
    Library().Record("GetUnicastWitnesses");
    witnesses = Library().unicastWitnesses;
  }
  void RestoreNetworkConfig() override { Library().Record("RestoreNetworkConfig"); }
  void RestoreClusterConfig(bool boot) override {
    Library().Record("RestoreClusterConfig", {Text(boot)});
  }
  void ClearNetworkConfig() override { Library().Record("ClearNetworkConfig"); }
  void ClearDatastores() override { Library().Record("ClearDatastores"); }
  void JoinCluster(const Uuid& cluster, bool witness, const std::string& preferred, bool wait,
                   bool reserved) override {
    Library().Record("JoinCluster",
                     {Text(cluster), Text(witness), preferred, Text(wait), Text(reserved)});
  }
  void CreateCluster(const std::string& uuid, bool enable, bool reserved) override {
    Library().Record("CreateCluster", {uuid, Text(enable), Text(reserved)});
  }
  void LeaveCluster(bool reserved) override { Library().Record("LeaveCluster", {Text(reserved)}); }
  const DovraClusterConfig& GetClusterConfig() override {
    Library().Record("GetClusterConfig");
    return Library().config;
  }
  void SetFaultDomain(const std::string& name) override {
    Library().Record("SetFaultDomain", {name});
  }
  void ResetFaultDomain() override { Library().Record("ResetFaultDomain"); }
  std::string GetFaultDomainName() override {
    Library().Record("GetFaultDomainName");
    return Library().faultDomainName;
  }
  void AddCapacityFlashTag(const std::string& disk) override {
    Library().Record("AddCapacityFlashTag", {disk});
  }
  void RemoveCapacityFlashTag(const std::string& disk) override {
    Library().Record("RemoveCapacityFlashTag", {disk});
  }
  void ClearPolicyDefaults() override { Library().Record("ClearPolicyDefaults"); }
  std::string GetDatastoreName(const std::string& uuid) override {
    Library().Record("GetDatastoreName", {uuid});
    return Library().datastoreNames[uuid];
  }
  void SetDatastoreName(const std::string& uuid, const std::string& name) override {
    Library().Record("SetDatastoreName", {uuid, name});
  }
  void AddDatastore(const DovraDatastore& datastore) override {
    Library().Record("AddDatastore",
                     {datastore.GetUuid(), datastore.GetName(), Text(datastore.IsDefault())});
  }
  void RemoveDatastore(const std::string& uuid, bool reserved) override {
    Library().Record("RemoveDatastore", {uuid, Text(reserved)});
  }
  void GetDatastores(Datastores& datastores) override {
    Library().Record("GetDatastores");
    datastores.clear();
    for (const auto& datastore : Library().datastores) {
      datastores.push_back(std::make_shared<DovraDatastore>(datastore));
    }
  }
  bool IsKnicInUse(const std::string& name, const std::string& traffic) override {
    Library().Record("IsKnicInUse", {name, traffic});
    return traffic == "dovra" ? Library().knicInUseForDovra : Library().knicInUseForWitness;
  }
  void GetDiskUuids(std::vector<Uuid>& disks) override {
    Library().Record("GetDiskUuids");
    disks.clear();
    for (const auto& text : Library().serviceDisks) {
      disks.push_back(CoreCtl::Dovra::DovraUtil::StringToDovraUuid(text));
    }
  }
  void SetPolicyDefault(const std::string& policyClass, const std::string& policy) override {
    Library().Record("SetPolicyDefault", {policyClass, policy});
  }
  std::string GetPolicyDefault(const std::string& policyClass) override {
    Library().Record("GetPolicyDefault", {policyClass});
    return Library().policies[policyClass];
  }
  std::int64_t GetResyncThrottle() override {
    Library().Record("GetResyncThrottle");
    return Library().throttle;
  }
  void SetResyncThrottle(std::int64_t level) override {
    Library().Record("SetResyncThrottle", {Text(level)});
  }
  std::int64_t GetResyncBandwidth() override {
    Library().Record("GetResyncBandwidth");
    return Library().bandwidth;
  }

 private:
  Counted counted_;
};

class RecordingInfo2 final : public RecordingInfo, public DovraInfo2 {
 public:
  void ConfigureKnic(const DovraKnicConfig2& config) override {
    Strings traffic;
    config.GetTrafficTypes(traffic);
    Library().Record(
        "ConfigureKnic",
        {config.GetKnicName(), Text(config.GetAgentMulticastGroup()),
         Text(config.GetAgentV6MulticastGroup()), Text(config.GetMasterMulticastGroup()),
         Text(config.GetMasterV6MulticastGroup()), std::to_string(config.GetAgentMulticastPort()),
         std::to_string(config.GetMasterMulticastPort()),
         std::to_string(config.GetHostUnicastPort()), std::to_string(config.GetMulticastTTL()),
         Text(traffic), config.GetIfaceUuid()});
  }
  std::vector<std::unique_ptr<DovraKnicConfig2>> GetKnicConfigs() override {
    Library().Record("GetKnicConfigs");
    std::vector<std::unique_ptr<DovraKnicConfig2>> configs;
    for (const auto& knic : Library().knics) {
      configs.push_back(Library().knicsHoldNull ? nullptr
                                                : std::make_unique<DovraKnicConfig2>(knic));
    }
    return configs;
  }
};

class RecordingPlugin final : public HostCtl::DovraPlugin {
 public:
  std::unique_ptr<DovraInfo> GetDovraInfo() override {
    Library().Record("GetDovraInfo");
    if (!Library().hasInfo) return nullptr;
    if (Library().hasInfo2) return std::make_unique<RecordingInfo2>();
    return std::make_unique<RecordingInfo>();
  }

 private:
  Counted counted_;
};

class RecordingLun final : public DovraDiskLun {
 public:
  RecordingLun(std::string device, const std::string& uuid)
      : device_(std::move(device)), uuid_(CoreCtl::Dovra::DovraUtil::StringToDovraUuid(uuid)) {}
  Uuid GetUuid() const override { return uuid_; }
  std::string GetDeviceName() const override { return device_; }

 private:
  Counted counted_;
  std::string device_;
  Uuid uuid_;
};

}  // namespace

}  // namespace Testing

using Testing::RecordingLibrary;

namespace HostCtl {

DovraPlugin::~DovraPlugin() = default;

std::unique_ptr<DovraPlugin> DovraPluginFactory::GetDovraPlugin() {
  RecordingLibrary::Get().Record("GetDovraPlugin");
  return std::make_unique<Testing::RecordingPlugin>();
}

namespace Dovra {

DovraInfo::~DovraInfo() = default;
DovraInfo2::~DovraInfo2() = default;

void DovraInfo::GetDovraDisks(DiskLuns& luns) {
  RecordingLibrary::Get().Record("GetDovraDisks");
  luns.clear();
  for (const auto& [device, uuid] : RecordingLibrary::Get().luns) {
    luns.push_back(std::make_shared<Testing::RecordingLun>(device, uuid));
  }
}

}  // namespace Dovra
}  // namespace HostCtl

namespace CoreCtl::Dovra {

void DovraUtil::GetInfoFromTavdir(std::vector<HostCtl::Dovra::DovraMemberInfo>& members,
                                  std::string& state, std::string& uuid, std::string& health,
                                  std::uint64_t& revision, std::string& membershipUuid,
                                  std::string& masterUuid, std::string& backupUuid,
                                  std::string& maintenanceState) {
  RecordingLibrary::Get().Record("GetInfoFromTavdir");
  for (const auto& member : RecordingLibrary::Get().members) members.push_back({member});
  state = "state";
  uuid = "local";
  health = "health";
  revision = 9;
  membershipUuid = "membership";
  masterUuid = "master";
  backupUuid = "backup";
  maintenanceState = "maintenance";
}

void DovraUtil::GetUnicastMode(bool& enabled) {
  RecordingLibrary::Get().Record("GetUnicastMode");
  enabled = RecordingLibrary::Get().unicastMode;
}

std::string DovraUtil::GetFormattedSystemDateTime() {
  RecordingLibrary::Get().Record("GetFormattedSystemDateTime");
  return "now";
}

bool DovraUtil::IsWitnessNode() {
  RecordingLibrary::Get().Record("IsWitnessNode");
  return RecordingLibrary::Get().isWitness;
}

bool DovraUtil::IsInStretchedCluster() {
  RecordingLibrary::Get().Record("IsInStretchedCluster");
  return RecordingLibrary::Get().stretched;
}

std::string DovraUtil::GetFaultDomainId() {
  RecordingLibrary::Get().Record("GetFaultDomainId");
  return "fault-domain-id";
}

void DovraUtil::GetPreferredFaultDomainInfo(std::string& id, std::string& name) {
  RecordingLibrary::Get().Record("GetPreferredFaultDomainInfo");
  id = "preferred-id";
  name = "preferred-name";
}

void DovraUtil::DecomCancel() {
  RecordingLibrary::Get().Record("DecomCancel");
}

int DovraUtil::DovraExec(const std::string& command, const std::string& argument, bool flag1,
                         bool flag2, bool flag3) {
  auto& library = RecordingLibrary::Get();
  const auto text = [](bool flag) { return std::string(flag ? "true" : "false"); };
  library.Record("DovraExec", {command, argument, text(flag1), text(flag2), text(flag3)});
  if (library.execStatuses.empty()) return 0;
  const int status = library.execStatuses.front();
  if (library.execStatuses.size() > 1) library.execStatuses.erase(library.execStatuses.begin());
  return status;
}

}  // namespace CoreCtl::Dovra
