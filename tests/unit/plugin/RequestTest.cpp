// Commands that make one request of the control library, or one for each policy class.

#include <gmock/gmock.h>

#include "RecordingLibrary.h"

using namespace Testing;

namespace {

Strings Opened(const Strings& requests) {
  Strings calls = kOpen;
  calls.insert(calls.end(), requests.begin(), requests.end());
  return calls;
}

TEST(Requests, AreHandedOnAsTheyWereGiven) {
  const std::pair<std::string, Strings> cases[] = {
      {"cluster restore --boot", {"RestoreClusterConfig(true)"}},
      {"cluster restore", {"RestoreClusterConfig(false)"}},
      {"datastore add --uuid 'no uuid' --name n", {"AddDatastore(no uuid, n, false)"}},
      {"datastore clear", {"ClearDatastores()"}},
      {"datastore remove --uuid U", {"RemoveDatastore(U, true)"}},
      {"datastore name set --newname 'new name'", {"SetDatastoreName(, new name)"}},
      {"datastore name set --uuid U --newname ''", {"SetDatastoreName(U, )"}},
      {"faultdomain set --fdname ''", {"ResetFaultDomain()"}},
      {"faultdomain reset", {"ResetFaultDomain()"}},
      {"network remove -i i", {"RemoveKnic(i, false, dovra)", "RemoveKnic(i, false, witness)"}},
      {"network ip remove -i i -f", {"RemoveKnic(i, true, dovra)", "RemoveKnic(i, true, witness)"}},
      {"network clear", {"ClearNetworkConfig()"}},
      {"network restore", {"RestoreNetworkConfig()"}},
      {"policy cleardefault", {"ClearPolicyDefaults()"}},
      {"policy setdefault -c vdisk -p ' a=\"1\"\n'", {"SetPolicyDefault(vdisk,  a=\"1\"\n)"}},
      {"resync throttle set --level 0", {"SetResyncThrottle(0)"}},
      {"storage add --ssd flash -d b -d a -d b", {"AddDisks(flash, [b, a, b])"}},
      {"storage automode set --enabled false", {"SetAutoClaimMode(false)"}},
      {"storage diskgroup mount --ssd s", {"MountDiskGroup(s)"}},
      {"storage diskgroup mount --disk d", {"MountDisk(d)"}},
      {"storage diskgroup mount --uuid '5AFA '", {"MountDiskByUuid(5AFA )"}},
      {"storage diskgroup unmount --ssd s", {"UnmountDiskGroup(s)"}},
      {"storage diskgroup unmount --disk d", {"UnmountDisk(d)"}},
      {"storage diskgroup unmount --uuid '5AFA '", {"UnmountDiskByUuid(5AFA )"}},
      {"storage remove --ssd s -m noAction", {"RemoveDiskGroup(s, NoAction)"}},
      {"storage remove --disk d", {"RemoveDisk(d, )"}},
      {"storage remove -d d -m EnsureObjectAccessibility",
       {"RemoveDisk(d, EnsureObjectAccessibility)"}},
      {"storage remove -d d -m ensureObjectAccessibility",
       {"RemoveDisk(d, EnsureObjectAccessibility)"}},
      {"storage remove -u '5A ' -m evacuateAllData", {"RemoveDiskByUuid(5A , EvacuateAllData)"}},
      {"storage tag add -t capacityFlash -d d", {"AddCapacityFlashTag(d)"}},
      {"storage tag remove -t capacityFlash -d d", {"RemoveCapacityFlashTag(d)"}},
  };
  // None of them needs the newer operations.
  const auto old = [](RecordingLibrary& library) { library.hasInfo2 = false; };
  for (const auto& [line, requests] : cases) Check(line, old, Opened(requests), "true");
}

TEST(Requests, NeedAnInformationObject) {
  const Outcome missing = Failed("The control library gave no information object.", "false");
  Check(
      "network clear", [](auto& library) { library.hasInfo = false; }, kOpen, missing);
  Check(
      "network clear", [](auto& library) { library.hasPlugin = false; }, {kOpen[0]}, missing);
}

TEST(Requests, AreAnsweredInRecords) {
  const auto answers = [](RecordingLibrary& library) {
    library.autoClaim = true;
    library.resync = -8589934593;  // 32 bits do not hold it
    library.names = {
        {"", "the default"}, {"U 1", "first"}, {"cluster", "a=1, b=2"}, {"vmem", "last"}};
    using HostCtl::Dovra::DovraDatastore;
    library.datastores = {nullptr, std::make_shared<DovraDatastore>("u2", "second", false),
                          std::make_shared<DovraDatastore>("u1", "first, \"1\"", true), nullptr};
  };
  const std::tuple<std::string, Strings, std::string> cases[] = {
      {"datastore list",
       {"GetDatastores()"},
       "Datastore UUID: u2, User Friendly Name: second, Default: false, Datastore UUID: u1, User "
       "Friendly Name: first, \"1\", Default: true"},
      {"datastore name get", {"GetDatastoreName()"}, "Name: the default"},
      {"datastore name get --uuid 'U 1'", {"GetDatastoreName(U 1)"}, "Name: first"},
      {"policy getdefault -c vmem",
       {"GetPolicyDefault(vmem)"},
       "Policy Class: vmem, Policy Value: last"},
      {"policy getdefault",
       {"GetPolicyDefault(cluster)", "GetPolicyDefault(vdisk)", "GetPolicyDefault(vmnamespace)",
        "GetPolicyDefault(vmswap)", "GetPolicyDefault(vmem)"},
       "Policy Class: cluster, Policy Value: a=1, b=2, Policy Class: vdisk, Policy Value: , Policy "
       "Class: vmnamespace, Policy Value: , Policy Class: vmswap, Policy Value: , Policy Class: "
       "vmem, Policy Value: last"},
      {"resync bandwidth get", {"GetResyncBandwidth()"}, "Rate: -8589934593"},
      {"resync throttle get", {"GetResyncThrottle()"}, "Level: -8589934593"},
      {"storage automode get", {"GetAutoClaimMode()"}, "Enabled: true"},
  };
  for (const auto& [line, requests, root] : cases) Check(line, answers, Opened(requests), {root});
}

TEST(Requests, KeepBlanksThatNoPageShows) {
  const auto policy = Find("policy setdefault").first.GetInputSpec();
  const auto removal = Find("storage remove").first.GetInputSpec();
  EXPECT_EQ(Find("storage automode get").first.GetDescription().front(), ' ');
  EXPECT_EQ(policy->GetParameters().back()->GetDescription().back(), '\n');
  EXPECT_THAT(removal->GetParameters().back()->GetDescription(),
              testing::ContainsRegex("are:\n    ensure[^\n]+\n    evacuate[^\n]+\n    noAction"));
}

}  // namespace
