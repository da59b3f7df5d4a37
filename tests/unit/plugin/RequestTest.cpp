// The commands that ask the control library for one thing, or for the same of each policy class.

#include "Cases.h"

using namespace Testing;

namespace {

TEST(Requests, AreHandedOnAsTheyWereGiven) {
  const std::pair<std::string, std::string> cases[] = {
      {"cluster restore --boot", "RestoreClusterConfig(true)"},
      {"cluster restore", "RestoreClusterConfig(false)"},
      {"datastore add --uuid 'no uuid' --name n", "AddDatastore(no uuid, n, false)"},
      {"datastore remove --uuid U", "RemoveDatastore(U, true)"},
      {"datastore name set --newname 'new name'", "SetDatastoreName(, new name)"},
      {"datastore name set --uuid U --newname ''", "SetDatastoreName(U, )"},
      {"faultdomain set --fdname ''", "ResetFaultDomain()"},
      {"policy setdefault -c vdisk -p ' a=1, \"b\"=2\n'",
       "SetPolicyDefault(vdisk,  a=1, \"b\"=2\n)"},
      {"resync throttle set --level 0", "SetResyncThrottle(0)"},
      {"storage add --ssd flash -d b -d a -d b", "AddDisks(flash, [b, a, b])"},
      {"storage automode set --enabled false", "SetAutoClaimMode(false)"},
      {"storage diskgroup mount --ssd s", "MountDiskGroup(s)"},
      {"storage diskgroup mount --disk d", "MountDisk(d)"},
      {"storage diskgroup mount --uuid '5AFA '", "MountDiskByUuid(5AFA )"},
      {"storage diskgroup unmount --ssd s", "UnmountDiskGroup(s)"},
      {"storage diskgroup unmount --disk d", "UnmountDisk(d)"},
      {"storage diskgroup unmount --uuid '5AFA '", "UnmountDiskByUuid(5AFA )"},
      {"storage remove --ssd s -m noAction", "RemoveDiskGroup(s, NoAction)"},
      {"storage remove --disk d", "RemoveDisk(d, )"},
      {"storage remove --disk d -m EnsureObjectAccessibility",
       "RemoveDisk(d, EnsureObjectAccessibility)"},
      {"storage remove --uuid '5AFA ' -m evacuateAllData",
       "RemoveDiskByUuid(5AFA , EvacuateAllData)"},
      {"storage tag add -t capacityFlash -d d", "AddCapacityFlashTag(d)"},
      {"storage tag remove -t capacityFlash -d d", "RemoveCapacityFlashTag(d)"},
  };
  // None of them needs the newer operations.
  const auto old = [](RecordingLibrary& library) { library.hasInfo2 = false; };
  for (const auto& [line, call] : cases) Check(line, old, kOpen + call, kTrue);
}

TEST(Requests, AreReadInOrder) {
  const std::pair<std::string, std::string> cases[] = {
      {"storage add -d a -s b", "ssd disks GetDovraPlugin GetDovraInfo AddDisks "},
      {"policy setdefault -p a -c vmem",
       "policy-class policy GetDovraPlugin GetDovraInfo SetPolicyDefault "},
      {"datastore name set -n a -u b",
       "uuid newname GetDovraPlugin GetDovraInfo SetDatastoreName "},
      {"cluster unicastagent add -i a -p 1 -a ::1 -U true -u b -t witness",
       "IsWitnessNode GetDovraPlugin GetDovraInfo type uuid supports-unicast addr port "
       "bound-interface-name GetUnicastWitnesses AddUnicastAgent "},
      {"cluster unicastagent add -a ::1 -U true -t node",
       "IsWitnessNode GetDovraPlugin GetDovraInfo type "},
  };
  for (const auto& [line, order] : cases) {
    RecordingLibrary library;
    Testing::Run(line);
    EXPECT_EQ(library.order, order);
  }
}

TEST(Requests, AreAnsweredInRecords) {
  const auto answers = [](RecordingLibrary& library) {
    library.autoClaim = true;
    library.bandwidth = 8589934593;  // 32 bits do not hold these
    library.throttle = -8589934593;
    library.datastoreNames = {{"", "the default"}, {"U 1", "first"}};
    library.hasNulls = true;
    library.datastores = {{"u2", "second", false}, {"u1", "first, \"quoted\"", true}};
  };
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {"datastore list", "GetDatastores()",
       "[{Datastore UUID: u2, User Friendly Name: second, Default: false}, {Datastore UUID: u1, "
       "User Friendly Name: first, \"quoted\", Default: true}]"},
      {"datastore name get", "GetDatastoreName()", "{Name: the default}"},
      {"datastore name get --uuid 'U 1'", "GetDatastoreName(U 1)", "{Name: first}"},
      {"resync bandwidth get", "GetResyncBandwidth()", "{Rate: 8589934593}"},
      {"resync throttle get", "GetResyncThrottle()", "{Level: -8589934593}"},
      {"storage automode get", "GetAutoClaimMode()", "{Enabled: true}"},
  };
  for (const auto& [line, call, root] : cases) Check(line, answers, kOpen + call, {root, {}});
}

TEST(PolicyGetDefault, ShowsAllClassesOrOne) {
  const auto policies = [](RecordingLibrary& library) {
    library.policies = {{"cluster", "a=1, b=2"}, {"vmem", "last"}, {"vmswap", "swap"}};
  };
  const Outcome all = {
      "[{Policy Class: cluster, Policy Value: a=1, b=2}, {Policy Class: vdisk, Policy Value: }, "
      "{Policy Class: vmnamespace, Policy Value: }, {Policy Class: vmswap, Policy Value: swap}, "
      "{Policy Class: vmem, Policy Value: last}]",
      {}};
  Check("policy getdefault", policies,
        kOpen + "GetPolicyDefault(cluster)" + "GetPolicyDefault(vdisk)" +
            "GetPolicyDefault(vmnamespace)" + "GetPolicyDefault(vmswap)" + "GetPolicyDefault(vmem)",
        all);
  Check("policy getdefault --policy-class vmswap", policies, kOpen + "GetPolicyDefault(vmswap)",
        {"[{Policy Class: vmswap, Policy Value: swap}]", {}});
  // The framework takes neither of these.
  RecordingLibrary library;
  policies(library);
  auto& command = Find("policy getdefault").first;
  EXPECT_EQ(Testing::Run(command, {{"policy-class", ""}}), all);
  const Outcome unknown = Testing::Run(command, {{"policy-class", "nonsense"}});
  EXPECT_EQ(unknown.root, "none");
  ASSERT_EQ(unknown.errors.size(), 1U);
  EXPECT_TRUE(unknown.errors[0].starts_with("Unknown policy class \"nonsense\""));
}

}  // namespace
