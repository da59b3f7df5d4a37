#include <gmock/gmock.h>

#include <regex>
#include <set>

#include "RecordingLibrary.h"
#include "platform/corectl/DovraUtil.h"

using namespace Testing;

namespace {

using HostCtl::Dovra::DovraDiskInfo;
using HostCtl::Dovra::Uuid;

TEST(StorageOptions, NameOneDiskAndAnEvacuationMode) {
  const Outcome onlyOne = Failed("Specify only one of --ssd, --disk or --uuid.");
  for (const std::string several :
       {" -s s -d d -u u", " -s s -d d", " -s s -u ''", " -d '' -u u"}) {
    Check("storage diskgroup mount" + several, {}, {}, onlyOne);
    Check("storage diskgroup unmount" + several, {}, {}, onlyOne);
    Check("storage remove -m nonsense" + several, {}, kOpen,
          Failed("At most one of --disk or --ssd or --uuid can be specified."));
  }
  Check("storage remove", {}, kOpen, Failed("No option provided"));
  Check("storage diskgroup unmount", {}, kOpen, Failed("Need one of --disk, --ssd or --uuid."));
  Check("storage diskgroup mount", {}, kOpen,
        Failed("Either --ssd, --disk or --uuid is required", "false"));
  for (const std::string mode : {"", "noaction", "NOACTION", " noAction", "noAction ", "\xFF"}) {
    Check("storage remove -m '" + mode + "'", {}, kOpen,
          Failed("Expected a single value from the set [noAction, ensureObjectAccessibility, "
                 "evacuateAllData] got '" +
                 mode + "'"));
  }
}

// The disks' UUIDs differ in the last four digits.
std::string TextOf(const std::string& lastFour) {
  return "52000000-0000-0000-0000-00000000" + lastFour;
}
Uuid UuidOf(const std::string& lastFour) {
  return CoreCtl::Dovra::DovraUtil::StringToDovraUuid(TextOf(lastFour));
}

struct Lun final : HostCtl::Dovra::DovraDiskLun {
  Lun(const char* device, const char* lastFour) : device_(device), uuid_(UuidOf(lastFour)) {}
  Uuid GetUuid() const override { return uuid_; }
  std::string GetDeviceName() const override { return device_; }

  std::string device_;
  Uuid uuid_;
};

DovraDiskInfo DiskNamed(const std::string& device, int version = 0) {
  return {.deviceName = device,
          .uuid = "uuid",
          .diskGroupUuid = "group uuid",
          .diskGroupName = "group name",
          .vendor = "not shown",
          .model = "not shown",
          .formatVersion = version,
          .checksum = "checksum"};
}

TEST(StorageList, ShowsEachMemberInItsField) {
  const std::tuple<bool DovraDiskInfo::*, std::set<std::string>, int, std::string> cases[] = {
      {&DovraDiskInfo::isFlash, {"Is SSD"}, 0, "1"},
      {&DovraDiskInfo::usedByThisHost, {"Used by this host"}, 1, "1"},
      {&DovraDiskInfo::inTavdir, {"In Tavdir"}, 2, "2"},
      {&DovraDiskInfo::deduplication, {"Deduplication", "Compression"}, 3, "2.5"},
      {&DovraDiskInfo::checksumOk, {"Checksum OK"}, 4, "3"},
      {&DovraDiskInfo::isCapacityTier, {"Is Capacity Tier"}, 5, "5"},
      {&DovraDiskInfo::encryption, {"Encryption"}, -1, "-1"},
      {&DovraDiskInfo::diskKeyLoaded, {"DiskKeyLoaded"}, INT32_MIN, "-2147483648"},
      {&DovraDiskInfo::isMounted, {"Is Mounted"}, INT32_MAX, "2147483647"},
  };
  for (const auto& [member, yes, version, label] : cases) {
    RecordingLibrary library;
    library.serviceDisks = {UuidOf("0001")};
    library.diskInfos[UuidOf("0001")] = DiskNamed("disk", version);
    library.diskInfos[UuidOf("0001")].*member = true;
    const auto flag = [&yes = yes](const char* field) {
      return std::string(", ") + field + (yes.contains(field) ? ": true" : ": false");
    };
    EXPECT_EQ(Execute("storage list"),
              Outcome{"Device: disk, Display Name: disk" + flag("Is SSD") +
                      ", DOVRA UUID: uuid, DOVRA Disk Group UUID: group uuid, DOVRA Disk Group "
                      "Name: group name" +
                      flag("Used by this host") + flag("In Tavdir") + ", On-disk format version: " +
                      label + flag("Deduplication") + flag("Compression") + ", Checksum: checksum" +
                      flag("Checksum OK") + flag("Is Capacity Tier") + flag("Encryption") +
                      flag("DiskKeyLoaded") + flag("Is Mounted")});
  }
}

// Local disks "a1", "A" and another "a1", of which the library knows nothing; the service knows the
// first of them and two more.
const SetUp kDisks = [](RecordingLibrary& library) {
  library.luns = {nullptr, std::make_shared<Lun>("a1", "0a0b"), std::make_shared<Lun>("A", "0003"),
                  std::make_shared<Lun>("a1", "ff01"), nullptr};
  library.serviceDisks = {UuidOf("ff00"), UuidOf("0a0b"), UuidOf("0001"), UuidOf("ff00")};
  library.diskInfos = {{UuidOf("0a0b"), DiskNamed("a1")},
                       {UuidOf("0003"), DiskNamed("A")},
                       {UuidOf("0001"), DiskNamed("remote")},
                       {UuidOf("ff00"), DiskNamed("last")}};
};

TEST(StorageList, MergesFiltersAndOrders) {
  const Strings all = {"0001", "0003", "0a0b", "ff00", "ff01"};
  const Strings listed = {"GetDovraDisks()", kOpen[0], kOpen[1], "GetDiskUuids()"};
  // Options; the disks asked for; the names of the rows' devices.
  const std::tuple<std::string, Strings, Strings> cases[] = {
      {"", all, {"remote", "A", "a1", "last", ""}},
      {" -d '' -u ''", all, {"remote", "A", "a1", "last", ""}},
      {" -d a1", {"0a0b", "ff01"}, {"a1", ""}},
      {" -u " + TextOf("0A0B"), {"0a0b"}, {"a1"}},
  };
  for (const auto& [options, uuids, devices] : cases) {
    Strings calls = listed;
    for (const auto& uuid : uuids) calls.push_back("GetDiskInfo(" + TextOf(uuid) + ", 5)");
    RecordingLibrary library;
    kDisks(library);
    const Outcome outcome = Execute("storage list" + options);
    const std::regex device("Device: ([^,]*), Display");
    std::sregex_token_iterator shown(outcome.begin(), outcome.end(), device, 1);
    EXPECT_EQ(Strings(shown, {}), devices) << outcome;
    EXPECT_EQ(library.calls, calls);
  }
  Check("storage list -d 'a1 '", kDisks, listed,
        Failed("Unable to find device with name: a1 ", ""));
  Check("storage list -u " + TextOf("0001"), kDisks, listed,
        Failed("Unable to find device with uuid: " + TextOf("0001"), ""));
  Check("storage list", {}, listed, {""});
  RecordingLibrary library;
  EXPECT_THAT(Execute("storage list -u 52"),
              testing::StartsWith(" ! Unable to list devices: \"52\" is not a UUID"));
  Check("storage list -d a -u u", kDisks, {},
        Failed("Only one of --device or --uuid can be specified."));
}

}  // namespace
