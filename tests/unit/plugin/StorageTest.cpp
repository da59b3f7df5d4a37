#include <gmock/gmock.h>

#include <cstdint>
#include <set>

#include "Cases.h"

using namespace Testing;

namespace {

using HostCtl::Dovra::DovraDiskInfo;

TEST(StorageRemove, KnowsItsEvacuationModes) {
  // The last one begins with a byte that is no letter by itself.
  for (const std::string given : {"", "noaction", "NOACTION", " noAction", "noAction ", "\xFF"}) {
    for (const std::string disk : {"--disk d ", ""}) {
      Check("storage remove " + disk + "-m '" + given + "'", kOpen,
            Failed("Expected a single value from the set [noAction, ensureObjectAccessibility, "
                   "evacuateAllData] got '" +
                   given + "'"));
    }
  }
}

TEST(StorageOptions, NameOneDiskExactly) {
  const Outcome onlyOne = Failed("Specify only one of --ssd, --disk or --uuid.");
  for (const std::string several :
       {" -s s -d d -u u", " -s s -d d", " -s s -u ''", " -d '' -u u"}) {
    Check("storage diskgroup mount" + several, {}, onlyOne);
    Check("storage diskgroup unmount" + several, {}, onlyOne);
    Check("storage remove -m nonsense" + several, kOpen,
          Failed("At most one of --disk or --ssd or --uuid can be specified."));
  }
  Check("storage remove", kOpen, Failed("No option provided"));
  Check("storage diskgroup unmount", kOpen, Failed("Need one of --disk, --ssd or --uuid."));
  Check("storage diskgroup mount", kOpen,
        Failed("Either --ssd, --disk or --uuid is required", "false"));
}

// Disks are told apart by the last digits of their UUIDs.
std::string UuidOf(const std::string& lastFour) {
  return "52000000-0000-0000-0000-00000000" + lastFour;
}

DovraDiskInfo DiskNamed(const std::string& device) {
  DovraDiskInfo disk;
  disk.deviceName = device;
  disk.uuid = "uuid of " + device;
  disk.diskGroupUuid = "group uuid";
  disk.diskGroupName = "group name";
  disk.vendor = disk.model = "not shown";
  disk.formatVersion = 3;
  disk.checksum = "checksum";
  return disk;
}

/// The row of that disk, true in the fields named.
std::string RowOf(const std::string& device, const std::set<std::string>& yes = {}) {
  const auto flag = [&yes](const char* field) {
    return std::string(field) + (yes.contains(field) ? ": true, " : ": false, ");
  };
  const std::string row =
      "{Device: " + device + ", Display Name: " + device + ", " + flag("Is SSD") +
      "DOVRA UUID: uuid of " + device +
      ", DOVRA Disk Group UUID: group uuid, DOVRA Disk Group Name: group name, " +
      flag("Used by this host") + flag("In Tavdir") + "On-disk format version: 2.5, " +
      flag("Deduplication") + flag("Compression") + "Checksum: checksum, " + flag("Checksum OK") +
      flag("Is Capacity Tier") + flag("Encryption") + flag("DiskKeyLoaded") + flag("Is Mounted");
  return row.substr(0, row.size() - 2) + "}";
}

TEST(StorageList, ShowsFormatVersionsUnderTheirLabels) {
  const std::pair<int, std::string> cases[] = {
      {0, "1"}, {1, "1"}, {2, "2"}, {3, "2.5"}, {4, "3"}, {7, "7"}, {INT32_MIN, "-2147483648"}};
  for (const auto& [version, label] : cases) {
    RecordingLibrary library;
    library.serviceDisks = {UuidOf("0001")};
    library.diskInfos[UuidOf("0001")].formatVersion = version;
    const std::string row = Testing::Run("storage list").root;
    EXPECT_NE(row.find("On-disk format version: " + label + ","), std::string::npos) << row;
  }
}

Outcome Rows(const Strings& devices, const Strings& errors = {}) {
  std::string rows;
  for (const auto& device : devices) rows += (rows.empty() ? "" : ", ") + RowOf(device);
  return {"[" + rows + "]", errors};
}

TEST(StorageList, ShowsEachMemberInItsField) {
  const std::pair<bool DovraDiskInfo::*, std::set<std::string>> cases[] = {
      {&DovraDiskInfo::isFlash, {"Is SSD"}},
      {&DovraDiskInfo::usedByThisHost, {"Used by this host"}},
      {&DovraDiskInfo::inTavdir, {"In Tavdir"}},
      {&DovraDiskInfo::deduplication, {"Deduplication", "Compression"}},
      {&DovraDiskInfo::checksumOk, {"Checksum OK"}},
      {&DovraDiskInfo::isCapacityTier, {"Is Capacity Tier"}},
      {&DovraDiskInfo::encryption, {"Encryption"}},
      {&DovraDiskInfo::diskKeyLoaded, {"DiskKeyLoaded"}},
      {&DovraDiskInfo::isMounted, {"Is Mounted"}},
  };
  for (const auto& [member, fields] : cases) {
    RecordingLibrary library;
    library.serviceDisks = {UuidOf("0001")};
    library.diskInfos[UuidOf("0001")] = DiskNamed("disk");
    library.diskInfos[UuidOf("0001")].*member = true;
    EXPECT_EQ(Testing::Run("storage list"), (Outcome{"[" + RowOf("disk", fields) + "]", {}}));
  }
}

// Two local disks, "a1" and "A"; the service knows the first of them and two more.
const SetUp kDisks = [](RecordingLibrary& library) {
  library.hasNulls = true;
  library.luns = {{"a1", UuidOf("0a0b")}, {"A", UuidOf("0003")}};
  library.serviceDisks = {UuidOf("ff00"), UuidOf("0a0b"), UuidOf("0001"), UuidOf("ff00")};
  library.diskInfos = {{UuidOf("0a0b"), DiskNamed("a1")},
                       {UuidOf("0003"), DiskNamed("A")},
                       {UuidOf("0001"), DiskNamed("remote")},
                       {UuidOf("ff00"), DiskNamed("last")}};
};

TEST(StorageList, MergesFiltersAndOrders) {
  const Strings all = {"0001", "0003", "0a0b", "ff00"};
  const Outcome everything = Rows({"remote", "A", "a1", "last"});
  const std::string noName = "Unable to find device with name: ";
  const std::string noUuid = "Unable to find device with uuid: ";
  const std::tuple<std::string, Strings, Outcome> cases[] = {
      {"", all, everything},
      {" -d '' -u ''", all, everything},
      {" -d a1", {"0a0b"}, Rows({"a1"})},
      {" -d 'a1 '", {}, Rows({}, {noName + "a1 "})},
      {" -u " + UuidOf("0A0B"), {"0a0b"}, Rows({"a1"})},
      {" -u " + UuidOf("0001"), {}, Rows({}, {noUuid + UuidOf("0001")})},
  };
  const Strings listed = {"GetDovraDisks()", kOpen[0], kOpen[1], "GetDiskUuids()"};
  for (const auto& [options, uuids, outcome] : cases) {
    Strings calls = listed;
    for (const auto& uuid : uuids) calls.push_back("GetDiskInfo(" + UuidOf(uuid) + ", 4)");
    Check("storage list" + options, kDisks, calls, outcome);
  }
  Check("storage list", listed, Rows({}));
  Check("storage list -u 52", {"GetDovraDisks()"},
        Failed("Unable to list devices: " + NoUuid("52"), "[]"));
  Check("storage list -d a -u u", kDisks, {},
        Failed("Only one of --device or --uuid can be specified."));
}

TEST(StorageList, FillsAFreshRecordForEachDeviceOfTheName) {
  RecordingLibrary library;
  library.luns = {{"a", UuidOf("0001")}, {"a", UuidOf("0002")}};
  library.diskInfos[UuidOf("0001")] = DiskNamed("a");  // of the other the library knows nothing
  EXPECT_THAT(Testing::Run("storage list -d a").root,
              testing::HasSubstr("}, {Device: , Display Name: , Is SSD: false, DOVRA UUID: , "));
}

}  // namespace
