#include <gmock/gmock.h>

#include <cstdint>
#include <set>

#include "Cases.h"

using namespace Testing;

namespace {

using HostCtl::Dovra::DovraDiskInfo;

TEST(StorageAdd, HandsTheDisksOnAsGiven) {
  const Given given = {{"ssd", "flash"}, {"disks", Strings{"b", "a", "b"}}};
  Check("storage add", {}, given, kOpen + Strings{"AddDisks(flash, [b, a, b])"}, kTrue);
  Check("storage add", {}, {{"ssd", "s"}, {"disks", Strings{}}}, kOpen + Strings{"AddDisks(s, [])"},
        kTrue);
}

TEST(StorageRemove, ChoosesTheOperationByTheOption) {
  Check("storage remove", {}, {{"disk", "d"}}, kOpen + Strings{"RemoveDisk(d, )"}, kTrue);
  Check("storage remove", {}, {{"ssd", "s"}, {"evacuation-mode", "noAction"}},
        kOpen + Strings{"RemoveDiskGroup(s, NoAction)"}, kTrue);
  Check("storage remove", {}, {{"uuid", "5AFA "}, {"evacuation-mode", "evacuateAllData"}},
        kOpen + Strings{"RemoveDiskByUuid(5AFA , EvacuateAllData)"}, kTrue);
}

TEST(StorageRemove, KnowsItsEvacuationModes) {
  const std::pair<const char*, const char*> known[] = {
      {"noAction", "NoAction"},
      {"NoAction", "NoAction"},
      {"ensureObjectAccessibility", "EnsureObjectAccessibility"},
      {"evacuateAllData", "EvacuateAllData"},
  };
  for (const auto& [given, passed] : known) {
    Check("storage remove", {}, {{"disk", "d"}, {"evacuation-mode", given}},
          kOpen + Strings{std::string("RemoveDisk(d, ") + passed + ")"}, kTrue);
  }
  // The last two begin with bytes that are no letters by themselves.
  const char* const unknown[] = {
      "", "noaction", "NOACTION", " noAction", "noAction ", "\xC3\xA9vacuateAllData", "\xFF"};
  for (const std::string given : unknown) {
    const Outcome refused = Failed(
        "Expected a single value from the set [noAction, ensureObjectAccessibility, "
        "evacuateAllData] got '" +
        given + "'");
    Check("storage remove", {}, {{"disk", "d"}, {"evacuation-mode", given}}, kOpen, refused);
    Check("storage remove", {}, {{"evacuation-mode", given}}, kOpen, refused);
  }
}

void CheckMounting(const std::string& command, const std::string& verb) {
  Check(command, {}, {{"ssd", "s"}}, kOpen + Strings{verb + "DiskGroup(s)"}, kTrue);
  Check(command, {}, {{"disk", "d"}}, kOpen + Strings{verb + "Disk(d)"}, kTrue);
  Check(command, {}, {{"uuid", "5AFA "}}, kOpen + Strings{verb + "DiskByUuid(5AFA )"}, kTrue);
  Check(command, {}, {{"uuid", ""}}, kOpen + Strings{verb + "DiskByUuid()"}, kTrue);
}

TEST(StorageDiskgroup, ChoosesTheOperationByTheOption) {
  CheckMounting("storage diskgroup mount", "Mount");
  CheckMounting("storage diskgroup unmount", "Unmount");
}

TEST(StorageOptions, NameOneDiskExactly) {
  const Outcome onlyOne = Failed("Specify only one of --ssd, --disk or --uuid.");
  const Given several[] = {{{"ssd", "s"}, {"disk", "d"}, {"uuid", "u"}},
                           {{"ssd", "s"}, {"disk", "d"}},
                           {{"ssd", "s"}, {"uuid", ""}},
                           {{"disk", ""}, {"uuid", "u"}}};
  for (Given given : several) {
    Check("storage diskgroup mount", {}, given, {}, onlyOne);
    Check("storage diskgroup unmount", {}, given, {}, onlyOne);
    given.emplace_back("evacuation-mode", "nonsense");
    Check("storage remove", {}, given, kOpen,
          Failed("At most one of --disk or --ssd or --uuid can be specified."));
  }
  Check("storage remove", {}, {}, kOpen, Failed("No option provided"));
  Check("storage diskgroup unmount", {}, {}, kOpen, Failed("Need one of --disk, --ssd or --uuid."));
  Check("storage diskgroup mount", {}, {}, kOpen,
        Failed("Either --ssd, --disk or --uuid is required", "false"));
}

TEST(StorageAutoMode, IsReadAndSet) {
  for (const bool enabled : {true, false}) {
    const std::string text = enabled ? "true" : "false";
    Check("storage automode set", {}, {{"enabled", enabled}},
          kOpen + Strings{"SetAutoClaimMode(" + text + ")"}, kTrue);
    Check("storage automode get", [=](RecordingLibrary& library) { library.autoClaim = enabled; },
          {}, kOpen + Strings{"GetAutoClaimMode()"}, {"{Enabled: " + text + "}", {}});
  }
}

TEST(StorageTag, NamesTheDisk) {
  const Given given = {{"tag", "capacityFlash"}, {"disk", "d"}};
  Check("storage tag add", {}, given, kOpen + Strings{"AddCapacityFlashTag(d)"}, kTrue);
  Check("storage tag remove", {}, given, kOpen + Strings{"RemoveCapacityFlashTag(d)"}, kTrue);
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
  library.luns = {{"a1", UuidOf("0a0b")}, {"A", UuidOf("0003")}};
  library.serviceDisks = {UuidOf("ff00"), UuidOf("0a0b"), UuidOf("0001"), UuidOf("ff00")};
  library.diskInfos = {{UuidOf("0a0b"), DiskNamed("a1")},
                       {UuidOf("0003"), DiskNamed("A")},
                       {UuidOf("0001"), DiskNamed("remote")},
                       {UuidOf("ff00"), DiskNamed("last")}};
};

/// The calls that read these disks.
Strings Reading(const Strings& disks) {
  Strings calls = Strings{"GetDovraDisks()"} + kOpen + Strings{"GetDiskUuids()"};
  for (const auto& disk : disks) calls.push_back("GetDiskInfo(" + UuidOf(disk) + ", 2)");
  return calls;
}

TEST(StorageList, MergesFiltersAndOrders) {
  const Strings uuids = {"0001", "0003", "0a0b", "ff00"};
  const Strings devices = {"remote", "A", "a1", "last"};
  const std::string noName = "Unable to find device with name: ";
  const std::string noUuid = "Unable to find device with uuid: ";
  const struct {
    Given given;
    Strings uuids;
    Outcome outcome;
  } cases[] = {
      {{}, uuids, Rows(devices)},
      {{{"device", ""}, {"uuid", ""}}, uuids, Rows(devices)},
      {{{"device", "a1"}}, {"0a0b"}, Rows({"a1"})},
      {{{"device", "A"}, {"uuid", ""}}, {"0003"}, Rows({"A"})},
      {{{"device", "a"}}, {}, Rows({}, {noName + "a"})},
      {{{"device", "a1 "}}, {}, Rows({}, {noName + "a1 "})},
      {{{"device", "remote"}}, {}, Rows({}, {noName + "remote"})},
      {{{"uuid", UuidOf("0A0B")}}, {"0a0b"}, Rows({"a1"})},
      {{{"uuid", UuidOf("0001")}}, {}, Rows({}, {noUuid + UuidOf("0001")})},
  };
  for (const auto& one : cases) {
    Check("storage list", kDisks, one.given, Reading(one.uuids), one.outcome);
  }
  Check("storage list", {}, {}, Reading({}), Rows({}));
  Check("storage list", kDisks, {{"device", "a"}, {"uuid", "u"}}, {},
        Failed("Only one of --device or --uuid can be specified."));
}

TEST(StorageList, FillsAFreshRecordForEachDeviceOfTheName) {
  RecordingLibrary library;
  library.luns = {{"a", UuidOf("0001")}, {"a", UuidOf("0002")}};
  library.diskInfos[UuidOf("0001")] = DiskNamed("a");  // of the other the library knows nothing
  EXPECT_THAT(Testing::Run("storage list", {{"device", "a"}}).root,
              testing::HasSubstr("}, {Device: , Display Name: , Is SSD: false, DOVRA UUID: , "));
}

TEST(StorageList, ReportsAMalformedUuidAsAFailure) {
  RecordingLibrary library;
  const Outcome noUuid = Testing::Run("storage list", {{"uuid", "52"}});
  EXPECT_EQ(noUuid.root, "[]");
  ASSERT_EQ(noUuid.errors.size(), 1U);
  EXPECT_TRUE(noUuid.errors[0].starts_with("Unable to list devices: \"52\" is not a UUID"));
  EXPECT_EQ(library.calls, Strings{"GetDovraDisks()"});
}

}  // namespace
