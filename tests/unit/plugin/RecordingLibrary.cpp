#include "RecordingLibrary.h"

#include <gtest/gtest.h>

#include <concepts>
#include <cstring>
#include <stdexcept>
#include <tuple>

#include "baselibs/Strings.h"
#include "clitools/CommandLine.h"
#include "clitools/Nodes.h"
#include "clitools/Records.h"
#include "clitools/Words.h"
#include "frame/HostFile.h"
#include "platform/baselibs/Uuid.h"
#include "platform/corectl/DovraUtil.h"
#include "trace/RestartPause.h"

namespace Testing {

namespace {

using namespace HostCtl::Dovra;
using namespace CliTools::AutoCli;
using CoreCtl::Dovra::DovraUtil;
using Word = const std::string&;

RecordingLibrary*& living = RecordingLibrary::living;

/// A recorded argument.
struct Text : std::string {
  Text(const std::string& value) : std::string(value) {}
  Text(const char* value) : std::string(value) {}
  Text(bool value) : std::string(value ? "true" : "false") {}
  Text(std::integral auto value) : std::string(std::to_string(value)) {}
  Text(const Uuid& value) : std::string(DovraUtil::DovraUuidToString(value)) {}
  Text(const Strings& values) : std::string("[" + BaseLibs::Join(values, ", ") + "]") {}
  Text(const DovraIpAddress& value)
      : std::string((value.isIpv6 ? "v6 " : "v4 ") + value.GetStringAddress()) {}
};

/// Records the call, and throws its exception if the test set one.
template <class... Arguments>
RecordingLibrary& Record(const std::string& operation, const Arguments&... arguments) {
  const std::vector<Text> texts = {arguments...};
  living->calls.push_back(operation + "(" + BaseLibs::Join(texts, ", ") + ")");
  const auto exception = living->exceptions.find(living->calls.size() - 1);
  if (exception != living->exceptions.end()) std::rethrow_exception(exception->second);
  return *living;
}

/// Returns the first of the answers, and removes it unless it is the last.
int Next(std::vector<int>& answers) {
  const int answer = answers.front();
  if (answers.size() > 1) answers.erase(answers.begin());
  return answer;
}

class RecordingInfo : public virtual DovraInfo {
 public:
  ~RecordingInfo() override {
    EXPECT_TRUE(living->pluginLives) << "the information object outlived its plug-in object";
  }

  void GetDiskInfo(const Uuid& disk, const DiskLuns& luns, DovraDiskInfo& info) override {
    const auto& known = Record(__func__, disk, luns.size()).diskInfos;
    if (const auto found = known.find(disk); found != known.end()) info = found->second;
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
  void RemoveKnic(Word nic, bool force, Word type) override { Record(__func__, nic, force, type); }
  void RefreshUnicastAgents() override { Record(__func__); }
  void AddUnicastAgent(Word uuid, bool witness, bool unicast, const DovraIpAddress& address,
                       std::int32_t port, bool hasInterface, Word interface, Word extra) override {
    Record(__func__, uuid, witness, unicast, address, port, hasInterface, interface, extra);
  }
  bool RemoveUnicastAgent(Word uuid, const DovraIpAddress& address, std::int32_t port) override {
    return Next(Record(__func__, uuid, address, port).removeUnicastAgentResults) != 0;
  }
  void GetUnicastAgents(Strings& entries) override { entries = Record(__func__).unicastAgents; }
  void GetUnicastWitnesses(Strings& texts) override { texts = Record(__func__).unicastWitnesses; }
  void RestoreNetworkConfig() override { Record(__func__); }
  void RestoreClusterConfig(bool boot) override { Record(__func__, boot); }
  void ClearNetworkConfig() override { Record(__func__); }
  void ClearDatastores() override { Record(__func__); }
  void JoinCluster(const Uuid& uuid, bool witness, Word site, bool wait, bool rest) override {
    Record(__func__, uuid, witness, site, wait, rest);
  }
  void CreateCluster(Word uuid, bool on, bool rest) override { Record(__func__, uuid, on, rest); }
  void LeaveCluster(bool reserved) override { Record(__func__, reserved); }
  const DovraClusterConfig& GetClusterConfig() override { return Record(__func__).config; }
  void SetFaultDomain(Word name) override { Record(__func__, name); }
  void ResetFaultDomain() override { Record(__func__); }
  std::string GetFaultDomainName() override { return Record(__func__).faultDomainName; }
  void AddCapacityFlashTag(Word disk) override { Record(__func__, disk); }
  void RemoveCapacityFlashTag(Word disk) override { Record(__func__, disk); }
  void ClearPolicyDefaults() override { Record(__func__); }
  std::string GetDatastoreName(Word uuid) override { return Record(__func__, uuid).names[uuid]; }
  void SetDatastoreName(Word uuid, Word name) override { Record(__func__, uuid, name); }
  void AddDatastore(const DovraDatastore& datastore) override {
    Record(__func__, datastore.GetUuid(), datastore.GetName(), datastore.IsDefault());
  }
  void RemoveDatastore(Word uuid, bool reserved) override { Record(__func__, uuid, reserved); }
  void GetDatastores(Datastores& handles) override { handles = Record(__func__).datastores; }
  bool IsKnicInUse(Word name, Word traffic) override {
    return Record(__func__, name, traffic).trafficInUse.contains(traffic);
  }
  void GetDiskUuids(std::vector<Uuid>& disks) override { disks = Record(__func__).serviceDisks; }
  void SetPolicyDefault(Word name, Word policy) override { Record(__func__, name, policy); }
  std::string GetPolicyDefault(Word name) override { return Record(__func__, name).names[name]; }
  std::int64_t GetResyncThrottle() override { return Record(__func__).resync; }
  void SetResyncThrottle(std::int64_t level) override { Record(__func__, level); }
  std::int64_t GetResyncBandwidth() override { return Record(__func__).resync; }
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
      configs.push_back(knic ? std::make_unique<DovraKnicConfig2>(*knic) : nullptr);
    }
    return configs;
  }
};

class RecordingPlugin final : public HostCtl::DovraPlugin {
 public:
  RecordingPlugin() { living->pluginLives = true; }
  ~RecordingPlugin() override { living->pluginLives = false; }
  std::unique_ptr<DovraInfo> GetDovraInfo() override {
    const auto& library = Record(__func__);
    if (!library.hasInfo) return nullptr;
    if (library.hasInfo2) return std::make_unique<RecordingInfo2>();
    return std::make_unique<RecordingInfo>();
  }
};

}  // namespace

std::string traceConfiguration = "/nowhere/dovratraced.conf";

std::shared_ptr<Namespace> Registered(std::shared_ptr<Namespace> root) {
  AutoCli_RegisterNamespaces(root);
  return root;
}

std::pair<Command&, std::string> Find(const std::string& line) {
  static const auto root = Registered();
  for (const auto& command : CliTools::CommandsBelow(*root)) {
    const std::string path = CliTools::PathOf(*command).substr(std::size("dovra")) + ' ';
    if ((line + ' ').starts_with(path)) return {*command, (line + ' ').substr(path.size())};
  }
  throw std::invalid_argument("no command begins \"" + line + "\"");
}

Outcome Execute(const std::string& line) {
  const auto& [command, rest] = Find(line);
  const auto output = CliTools::CallSpec::Output::New();
  command.Execute(CliTools::ParseParameters(*command.GetInputSpec(), CliTools::SplitWords(rest)),
                  output);
  const auto& root = output->GetRootObject();
  Outcome outcome = root ? CliTools::PlainText(root.get(), ", ") : "none";
  for (const auto& error : output->GetErrorMessages()) outcome = Failed(error, outcome);
  return outcome;
}

void Check(const std::string& line, const SetUp& setUp, const Strings& calls,
           const Outcome& outcome, const char* file, int number) {
  const testing::ScopedTrace trace(file, number, line);
  RecordingLibrary library;
  if (setUp) setUp(library);
  EXPECT_EQ(Execute(line), outcome);
  EXPECT_EQ(library.calls, calls);
}

}  // namespace Testing

using namespace Testing;

// A UUID is a number, and its long form has a prefix.

extern "C" char* UUID_CreateRandom() {
  const std::string number = std::to_string(++living->createdUuids);
  return living->createsUuids ? strdup(("long:" + number).c_str()) : nullptr;
}

extern "C" char* UUID_PackText(const char* source, char* destination, std::size_t length) {
  if (!living->packsUuids || length != std::strlen(source)) return nullptr;
  return static_cast<char*>(std::memmove(destination, source + 5, length - 4));
}

// The command fails, which must make no difference.
int CliTools::AutoCli::AutoCli_ShellCmd(const std::string& command, std::string& output,
                                        const std::string& input) {
  Record(__func__, command, std::exchange(output, "failed"), input);
  return 1;
}

void OrvaneCli::DovraNamespace::PauseBeforeRestart() {
  Record(__func__);
}

namespace HostCtl {

DovraPlugin::~DovraPlugin() = default;

std::unique_ptr<DovraPlugin> DovraPluginFactory::GetDovraPlugin() {
  if (!Record(__func__).hasPlugin) return nullptr;
  return std::make_unique<RecordingPlugin>();
}

namespace Dovra {

DovraInfo::~DovraInfo() = default;
DovraInfo2::~DovraInfo2() = default;

void DovraInfo::GetDovraDisks(DiskLuns& luns) {
  luns = Record(__func__).luns;
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
  std::tie(state, uuid, health, membershipUuid, masterUuid, backupUuid, maintenanceState) =
      std::tuple("state", "local", "health", "membership", "master", "backup", "maintenance");
  revision += INT64_MAX;  // from 0
}

void DovraUtil::GetUnicastMode(bool& enabled) {
  enabled = Record(__func__).unicastMode || enabled;  // false when the command calls
}

std::string DovraUtil::GetFormattedSystemDateTime() {
  return Record(__func__), "now";
}

bool DovraUtil::IsWitnessNode() {
  return Record(__func__).isWitness;
}

bool DovraUtil::IsInStretchedCluster() {
  return Record(__func__).stretched;
}

std::string DovraUtil::GetFaultDomainId() {
  return Record(__func__), "fault-domain-id";
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
  return Next(Record(__func__, command, argument, reserved1, reserved2, reserved3).execStatuses);
}

}  // namespace CoreCtl::Dovra

std::string OrvaneCli::DovraNamespace::HostFile(const char* path) {
  const bool isConfiguration = path == std::string("/etc/orvane/dovra/dovratraced.conf");
  return isConfiguration ? Testing::traceConfiguration : std::string("/the host's") + path;
}
