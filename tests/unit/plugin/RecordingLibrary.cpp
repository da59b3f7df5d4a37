#include "RecordingLibrary.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <type_traits>

#include "baselibs/Strings.h"
#include "platform/baselibs/Uuid.h"
#include "platform/clitools/AutoCli.h"
#include "platform/corectl/DovraUtil.h"
#include "trace/RestartPause.h"

namespace Testing {

namespace {

using namespace HostCtl::Dovra;
using CoreCtl::Dovra::DovraUtil;
using Strings = std::vector<std::string>;
using Word = const std::string&;

RecordingLibrary* living = nullptr;

template <class Value>
std::string Text(const Value& value) {
  if constexpr (std::is_same_v<Value, bool>)
    return value ? "true" : "false";
  else if constexpr (std::is_integral_v<Value>)
    return std::to_string(value);
  else if constexpr (std::is_same_v<Value, Uuid>)
    return DovraUtil::DovraUuidToString(value);
  else if constexpr (std::is_same_v<Value, Strings>)
    return "[" + BaseLibs::Join(value, ", ") + "]";
  else if constexpr (std::is_same_v<Value, DovraIpAddress>)
    return (value.isIpv6 ? "v6 " : "v4 ") + value.GetStringAddress();
  else
    return value;
}

/// Notes the call, then fails if the test said so.
template <class... Arguments>
RecordingLibrary& Record(const std::string& operation, const Arguments&... arguments) {
  living->calls.push_back(operation + "(" + BaseLibs::Join(Strings{Text(arguments)...}, ", ") +
                          ")");
  living->order += operation + ' ';
  const auto exception = living->exceptions.find(living->calls.size() - 1);
  if (exception != living->exceptions.end()) std::rethrow_exception(exception->second);
  return *living;
}

template <class Handles>
void AddNulls(Handles& handles) {
  if (!living->hasNulls) return;
  handles.emplace(handles.begin(), nullptr);
  handles.emplace_back(nullptr);
}

/// Something that a command owns; the library counts them.
template <int RecordingLibrary::*kCount>
struct Counted {
  Counted() { ++(living->*kCount); }
  ~Counted() { --(living->*kCount); }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;
};

class RecordingInfo : public virtual DovraInfo, Counted<&RecordingLibrary::liveObjects> {
 public:
  ~RecordingInfo() override {
    EXPECT_EQ(living->livePlugins, 1) << "the information object outlived its plug-in object";
  }

  void GetDiskInfo(const Uuid& disk, const DiskLuns& luns, DovraDiskInfo& info) override {
    const auto& known = Record(__func__, disk, luns.size()).diskInfos;
    if (const auto found = known.find(Text(disk)); found != known.end()) info = found->second;
  }
  void AddDisks(Word ssd, const Strings& disks) override { Record(__func__, ssd, disks); }
  void MountDiskGroup(Word ssd) override { Record(__func__, ssd); }
  void MountDiskByUuid(Word uuid) override { Record(__func__, uuid); }
  void MountDisk(Word disk) override { Record(__func__, disk); }
  void RemoveDisk(Word disk, Word mode) override { Record(__func__, disk, mode); }
  void RemoveDiskGroup(Word ssd, Word mode) override { Record(__func__, ssd, mode); }
  void UnmountDiskGroup(Word ssd) override { Record(__func__, ssd); }
  void UnmountDisk(Word disk) override { Record(__func__, disk); }
  void UnmountDiskByUuid(Word uuid) override { Record(__func__, uuid); }
  void RemoveDiskByUuid(Word uuid, Word mode) override { Record(__func__, uuid, mode); }
  void SetAutoClaimMode(bool enabled) override { Record(__func__, enabled); }
  bool GetAutoClaimMode() override { return Record(__func__).autoClaim; }
  void SetPreferredFaultDomain(Word name) override { Record(__func__, name); }
  bool IsLocalNodeWitness() override { return Record(__func__).isWitness; }
  DovraConfigGeneration GetConfigGeneration() override { return Record(__func__).generation; }
  void RemoveKnic(Word name, bool force, Word traffic) override {
    Record(__func__, name, force, traffic);
  }
  void RefreshUnicastAgents() override { Record(__func__); }
  void AddUnicastAgent(Word uuid, bool witness, bool unicast, const DovraIpAddress& address,
                       std::int32_t port, bool hasInterface, Word interface, Word extra) override {
    Record(__func__, uuid, witness, unicast, address, port, hasInterface, interface, extra);
  }
  bool RemoveUnicastAgent(Word uuid, const DovraIpAddress& address, std::int32_t port) override {
    return Record(__func__, uuid, address, port).removeUnicastAgentResult;
  }
  void GetUnicastAgents(Strings& entries) override { entries = Record(__func__).unicastAgents; }
  void GetUnicastWitnesses(Strings& texts) override { texts = Record(__func__).unicastWitnesses; }
  void RestoreNetworkConfig() override { Record(__func__); }
  void RestoreClusterConfig(bool boot) override { Record(__func__, boot); }
  void ClearNetworkConfig() override { Record(__func__); }
  void ClearDatastores() override { Record(__func__); }
  void JoinCluster(const Uuid& cluster, bool witness, Word preferred, bool wait,
                   bool reserved) override {
    Record(__func__, cluster, witness, preferred, wait, reserved);
  }
  void CreateCluster(Word uuid, bool enable, bool reserved) override {
    Record(__func__, uuid, enable, reserved);
  }
  void LeaveCluster(bool reserved) override { Record(__func__, reserved); }
  const DovraClusterConfig& GetClusterConfig() override { return Record(__func__).config; }
  void SetFaultDomain(Word name) override { Record(__func__, name); }
  void ResetFaultDomain() override { Record(__func__); }
  std::string GetFaultDomainName() override { return Record(__func__).faultDomainName; }
  void AddCapacityFlashTag(Word disk) override { Record(__func__, disk); }
  void RemoveCapacityFlashTag(Word disk) override { Record(__func__, disk); }
  void ClearPolicyDefaults() override { Record(__func__); }
  std::string GetDatastoreName(Word uuid) override {
    return Record(__func__, uuid).datastoreNames[uuid];
  }
  void SetDatastoreName(Word uuid, Word name) override { Record(__func__, uuid, name); }
  void AddDatastore(const DovraDatastore& datastore) override {
    Record(__func__, datastore.GetUuid(), datastore.GetName(), datastore.IsDefault());
  }
  void RemoveDatastore(Word uuid, bool reserved) override { Record(__func__, uuid, reserved); }
  void GetDatastores(Datastores& datastores) override {
    for (const auto& datastore : Record(__func__).datastores) {
      datastores.push_back(std::make_shared<DovraDatastore>(datastore));
    }
    AddNulls(datastores);
  }
  bool IsKnicInUse(Word name, Word traffic) override {
    const auto& library = Record(__func__, name, traffic);
    return traffic == "dovra" ? library.knicInUseForDovra : library.knicInUseForWitness;
  }
  void GetDiskUuids(std::vector<Uuid>& disks) override {
    for (const auto& text : Record(__func__).serviceDisks) {
      disks.push_back(DovraUtil::StringToDovraUuid(text));
    }
  }
  void SetPolicyDefault(Word policyClass, Word policy) override {
    Record(__func__, policyClass, policy);
  }
  std::string GetPolicyDefault(Word policyClass) override {
    return Record(__func__, policyClass).policies[policyClass];
  }
  std::int64_t GetResyncThrottle() override { return Record(__func__).throttle; }
  void SetResyncThrottle(std::int64_t level) override { Record(__func__, level); }
  std::int64_t GetResyncBandwidth() override { return Record(__func__).bandwidth; }
};

class RecordingInfo2 final : public RecordingInfo, public DovraInfo2 {
 public:
  void ConfigureKnic(const DovraKnicConfig2& config) override {
    Strings traffic;
    config.GetTrafficTypes(traffic);
    Record(__func__, config.GetKnicName(), config.GetAgentMulticastGroup(),
           config.GetAgentV6MulticastGroup(), config.GetMasterMulticastGroup(),
           config.GetMasterV6MulticastGroup(), config.GetAgentMulticastPort(),
           config.GetMasterMulticastPort(), config.GetHostUnicastPort(), config.GetMulticastTTL(),
           traffic, config.GetIfaceUuid());
  }
  std::vector<std::unique_ptr<DovraKnicConfig2>> GetKnicConfigs() override {
    std::vector<std::unique_ptr<DovraKnicConfig2>> configs;
    for (const auto& knic : Record(__func__).knics) {
      configs.push_back(std::make_unique<DovraKnicConfig2>(knic));
    }
    AddNulls(configs);
    return configs;
  }
};

class RecordingPlugin final : public HostCtl::DovraPlugin, Counted<&RecordingLibrary::livePlugins> {
 public:
  std::unique_ptr<DovraInfo> GetDovraInfo() override {
    const auto& library = Record(__func__);
    if (!library.hasInfo) return nullptr;
    if (library.hasInfo2) return std::make_unique<RecordingInfo2>();
    return std::make_unique<RecordingInfo>();
  }
};

class RecordingLun final : public DovraDiskLun, Counted<&RecordingLibrary::liveObjects> {
 public:
  RecordingLun(std::string device, const std::string& uuid)
      : device_(std::move(device)), uuid_(DovraUtil::StringToDovraUuid(uuid)) {}
  Uuid GetUuid() const override { return uuid_; }
  std::string GetDeviceName() const override { return device_; }

 private:
  std::string device_;
  Uuid uuid_;
};

void NoteRead(const std::string& parameter) {
  if (living) living->order += parameter + ' ';
}

/// The base library's own function of that name.
template <class Function>
Function* Original(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

RecordingLibrary::RecordingLibrary() {
  living = this;
}
RecordingLibrary::~RecordingLibrary() {
  EXPECT_EQ(liveObjects + livePlugins, 0) << "an object of the control library was not released";
  living = nullptr;
}

}  // namespace Testing

using namespace Testing;

extern "C" char* UUID_CreateRandom() {
  const bool fails = living && living->uuids == RecordingLibrary::Uuids::kNone;
  return fails ? nullptr : Original<char*()>("UUID_CreateRandom")();
}

extern "C" char* UUID_PackText(const char* source, char* destination, std::size_t length) {
  if (living && living->uuids == RecordingLibrary::Uuids::kUnreadable) return nullptr;
  return Original<decltype(UUID_PackText)>("UUID_PackText")(source, destination, length);
}

namespace CliTools::CallSpec {

std::string Input::GetParameter(const std::string& name) const {
  NoteRead(name);
  return HasParameter(name) ? std::get<std::string>(values_.at(name)) : "";
}
bool Input::GetParameterBool(const std::string& name) const {
  NoteRead(name);
  return std::get<bool>(values_.at(name));
}
std::int64_t Input::GetParameterInt(const std::string& name) const {
  NoteRead(name);
  return std::get<std::int64_t>(values_.at(name));
}
void Input::GetParameterList(const std::string& name, Strings& values) const {
  NoteRead(name);
  values = std::get<Strings>(values_.at(name));
}

}  // namespace CliTools::CallSpec

int CliTools::AutoCli::AutoCli_ShellCmd(const std::string& command, std::string& output,
                                        const std::string& input) {
  Record(__func__, command, output, input);
  return 0;
}

void OrvaneCli::DovraNamespace::PauseBeforeRestart() {
  Record(__func__);
}

namespace HostCtl {

DovraPlugin::~DovraPlugin() = default;

std::unique_ptr<DovraPlugin> DovraPluginFactory::GetDovraPlugin() {
  Record(__func__);
  return std::make_unique<RecordingPlugin>();
}

namespace Dovra {

DovraInfo::~DovraInfo() = default;
DovraInfo2::~DovraInfo2() = default;

void DovraInfo::GetDovraDisks(DiskLuns& luns) {
  for (const auto& [device, uuid] : Record(__func__).luns) {
    luns.push_back(std::make_shared<RecordingLun>(device, uuid));
  }
  AddNulls(luns);
}

}  // namespace Dovra
}  // namespace HostCtl

namespace CoreCtl::Dovra {

void DovraUtil::GetInfoFromTavdir(std::vector<HostCtl::Dovra::DovraMemberInfo>& members,
                                  std::string& state, std::string& uuid, std::string& health,
                                  std::uint64_t& revision, std::string& membershipUuid,
                                  std::string& masterUuid, std::string& backupUuid,
                                  std::string& maintenanceState) {
  for (const auto& member : Record(__func__).members) members.push_back({member});
  state = "state";
  uuid = "local";
  health = "health";
  revision = (std::uint64_t{1} << 32) + 9;
  membershipUuid = "membership";
  masterUuid = "master";
  backupUuid = "backup";
  maintenanceState = "maintenance";
}

void DovraUtil::GetUnicastMode(bool& enabled) {
  enabled = Record(__func__).unicastMode;
}

std::string DovraUtil::GetFormattedSystemDateTime() {
  Record(__func__);
  return "now";
}

bool DovraUtil::IsWitnessNode() {
  return Record(__func__).isWitness;
}

bool DovraUtil::IsInStretchedCluster() {
  return Record(__func__).stretched;
}

std::string DovraUtil::GetFaultDomainId() {
  Record(__func__);
  return "fault-domain-id";
}

void DovraUtil::GetPreferredFaultDomainInfo(std::string& id, std::string& name) {
  Record(__func__);
  id = "preferred-id";
  name = "preferred-name";
}

void DovraUtil::DecomCancel() {
  Record(__func__);
}

int DovraUtil::DovraExec(const std::string& command, const std::string& argument, bool reserved1,
                         bool reserved2, bool reserved3) {
  auto& statuses =
      Record(__func__, command, argument, reserved1, reserved2, reserved3).execStatuses;
  if (statuses.empty()) return 0;
  const int status = statuses.front();
  if (statuses.size() > 1) statuses.erase(statuses.begin());
  return status;
}

}  // namespace CoreCtl::Dovra
