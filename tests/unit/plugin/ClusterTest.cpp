// Status, membership and fault domains.

#include <gmock/gmock.h>

#include <cstdlib>
#include <regex>
#include <set>

#include "Cases.h"

using namespace Testing;

namespace {

constexpr const char* kUuid = "01234567-89ab-cdef-0123-456789abcdef";
const std::string kLongest = std::string(255, 'x') + "\u20ac";  // 256 characters, 258 bytes
const Strings kConfig = kOpen + "GetClusterConfig()";
const Outcome kAlreadyIn = Failed(
    "The host is in a Dovra cluster and enabled for Dovra. You need to remove it from the cluster "
    "or disable Dovra.");
const SetUp kNotEnabled = [](RecordingLibrary& library) { library.config.enabled = false; };

/// "Config Generation" as the command prints it.
std::string PrintedGeneration(std::uint64_t timestamp, const char* zone) {
  setenv("TZ", zone, 1);
  RecordingLibrary library;
  library.generation = {kUuid, 7, timestamp};
  const std::string root = Testing::Run("cluster get").root;
  unsetenv("TZ");
  const auto begin = root.find("Config Generation: ") + 19;
  return root.substr(begin, root.size() - begin - 1);
}

TEST(ClusterGet, ReportsTheCluster) {
  const auto witness = [](RecordingLibrary& library) {
    library.isWitness = true;
    library.unicastMode = true;
    library.members = {"m1", "m2"};
  };
  Check("cluster get", witness,
        kConfig + "IsLocalNodeWitness()" + "GetInfoFromTavdir()" + "GetUnicastMode()" +
            "GetConfigGeneration()" + "GetFormattedSystemDateTime()",
        {"{Enabled: true, Current Local Time: now, Local Node UUID: local, Local Node Type: "
         "WITNESS, Local Node State: state, Local Node Health State: health, Sub-Cluster Master "
         "UUID: master, Sub-Cluster Backup UUID: backup, Sub-Cluster UUID: "
         "c0000000-0000-0000-0000-000000000001, Sub-Cluster Membership Entry Revision: "
         "4294967305, Sub-Cluster Member Count: 2, Sub-Cluster Member UUIDs: [m1, m2], "
         "Sub-Cluster Membership UUID: membership, Unicast Mode Enabled: true, Maintenance Mode "
         "State: maintenance, Config Generation: None 0 0.0}",
         {}});
  RecordingLibrary library;
  library.config.enabled = false;
  const Outcome disabled = Testing::Run("cluster get");
  EXPECT_THAT(disabled.root,
              testing::MatchesRegex("\\{Enabled: false(, [^:,]+: (|0|false|\\[\\])){15}\\}"));
  EXPECT_EQ(disabled.errors, Strings{"Dovra Clustering is not enabled on this host"});
  EXPECT_EQ(library.calls, kConfig);
}

TEST(ClusterGet, CountsManyMembers) {
  RecordingLibrary library;
  library.members = Strings(65537, "m");
  const std::string root = Testing::Run("cluster get").root;
  EXPECT_THAT(root.substr(0, 500), testing::HasSubstr("Local Node Type: NORMAL"));
  EXPECT_THAT(root.substr(0, 500), testing::HasSubstr("Sub-Cluster Member Count: 65537,"));
}

TEST(ClusterGet, PrintsTimestampsWithUnpaddedMilliseconds) {
  const std::tuple<std::uint64_t, const char*, const char*> cases[] = {
      {999, "UTC", "0.999"},
      {1000, "UTC", "1970-01-01T00:00:01.0"},
      {1456827630045, "<+0530>-5:30", "2016-03-01T15:50:30.45"},
      {UINT64_MAX, "UTC", "584556019-04-03T14:25:51.615"},
  };
  for (const auto& [timestamp, zone, printed] : cases) {
    EXPECT_EQ(PrintedGeneration(timestamp, zone), std::string(kUuid) + " 7 " + printed) << zone;
  }
}

TEST(ClusterJoin, ChecksInOrderAndJoins) {
  const std::string join = std::string("cluster join -u ") + kUuid;
  const std::string witness = join + " --witness-node --witness-preferred-fault-domain ";
  const auto joined = [](const std::string& arguments) {
    return kConfig + (std::string("JoinCluster(") + kUuid + arguments + ", false)");
  };
  const Outcome badName =
      Failed("Preferred fault domain name cannot be empty or exceed 256 characters.");
  Check("cluster join -u bad --witness-node", kConfig, kAlreadyIn);
  Check(join + " --witness-node", kNotEnabled, kConfig,
        Failed("If --witness-node is specified, --witness-preferred-fault-domain must also be "
               "specified."));
  Check(witness + "''", kNotEnabled, kConfig, badName);
  Check(witness + kLongest + "x", kNotEnabled, kConfig, badName);
  Check(join + " --witness-preferred-fault-domain ''", kNotEnabled, kConfig,
        Failed("--witness-preferred-fault-domain is valid only when --witness-node is "
               "specified."));
  Check(join, kNotEnabled, joined(", false, , false"), kTrue);
  Check(join + " --wait", kNotEnabled, joined(", false, , true"), kTrue);
  Check(witness + kLongest, kNotEnabled, joined(", true, " + kLongest + ", false"), kTrue);
  Check("cluster join -u 0123", kNotEnabled, kConfig, Failed(NoUuid("0123"), "false"));
}

TEST(NewUuid, IsAnotherEachTime) {
  const std::regex uuid("[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}");
  const std::pair<const char*, const char*> cases[] = {
      {"cluster new", "CreateCluster(UUID, true, false)"},
      {"datastore add --name n", "AddDatastore(UUID, n, false)"},
      {"datastore add --uuid '' --name n", "AddDatastore(UUID, n, false)"},
  };
  std::set<std::string> calls;
  for (const auto& [line, call] : cases) {
    for (int time = 0; time < 2; ++time) {
      RecordingLibrary library;
      library.config.enabled = false;
      EXPECT_EQ(Testing::Run(line), kTrue);
      EXPECT_EQ(std::regex_replace(library.calls.back(), uuid, "UUID"), call);
      EXPECT_TRUE(calls.insert(library.calls.back()).second) << library.calls.back();
    }
  }
  Check("cluster new", kConfig, kAlreadyIn);
}

TEST(NewUuid, MayBeMissing) {
  using Uuids = RecordingLibrary::Uuids;
  for (const Uuids uuids : {Uuids::kNone, Uuids::kUnreadable}) {
    const auto without = [uuids](RecordingLibrary& library) {
      library.config.enabled = false;
      library.uuids = uuids;
    };
    Check("cluster new", without, kConfig, Failed("Unable to generate a UUID"));
    Check("datastore add --name n", without, kOpen, Failed("Unable to generate a UUID"));
  }
}

TEST(ClusterLeave, TellsOfTheDatastores) {
  const Strings read = kConfig + "GetDatastores()";
  const auto shell = [](const std::string& event, const std::string& names) {
    return "AutoCli_ShellCmd('/the host'\\''s/usr/lib/orvane/hostmgrd/bin/notifyDatastore.py' -t " +
           event + " -d " + names + ", , )";
  };
  const auto left = [&](const std::string& names) {
    return read + shell("PreUnmount", names) + "LeaveCluster(false)";
  };
  const auto failed = [&](const std::string& names) {
    return left(names) + shell("FailedUnmount", names);
  };
  // The numbers are the places of the calls that fail.
  const std::tuple<Strings, std::set<std::size_t>, Strings, Outcome> cases[] = {
      {{"a", "it's; $(b)"}, {}, left("'a,it'\\''s; $(b)'"), kTrue},
      {{"a", "\u00e4"}, {5}, failed("'a,\u00e4'"), Failed("busy")},
      {{"a"}, {5, 6}, failed("a"), {"none", {"busy", "busy"}}},
      {{}, {5}, left(""), Failed("busy")},
      {{"aZ09._-,:/@+"}, {}, left("aZ09._-,:/@+"), kTrue},
      {{"a"}, {3}, read, Failed("busy")},  // it says nothing before it knows what to say
  };
  using HostCtl::Lib::Dovra::DovraCtlException;
  for (const auto& [datastores, failing, calls, outcome] : cases) {
    RecordingLibrary library;
    library.hasNulls = true;
    for (const auto& name : datastores) library.datastores.emplace_back("u", name, false);
    for (const std::size_t place : failing) {
      library.exceptions[place] = std::make_exception_ptr(DovraCtlException("busy"));
    }
    EXPECT_EQ(Testing::Run("cluster leave"), outcome);
    EXPECT_EQ(library.calls, calls);
  }
  Check("cluster leave", kNotEnabled, kConfig, Failed("The host is not in a Dovra cluster."));
}

TEST(FaultDomainGet, ShowsNameAndId) {
  const Strings named = kOpen + "GetFaultDomainName()" + "GetClusterConfig()";
  Check("faultdomain get", named + "GetFaultDomainId()",
        {"{faultDomainName: site-a, faultDomainId: fault-domain-id}", {}});
  Check("faultdomain get", kNotEnabled, named, {"{faultDomainName: site-a, faultDomainId: }", {}});
}

TEST(FaultDomainSet, CountsBytesAndLeavesTrue) {
  const std::string longest = std::string(253, 'x') + "\u20ac";  // 256 bytes
  Check("faultdomain set --fdname " + longest + "x", {},
        Failed("Fault domain name cannot exceed 256 characters.", "true"));
  Check("faultdomain set --fdname " + longest, kOpen + ("SetFaultDomain(" + longest + ")"), kTrue);
}

TEST(FaultDomainPreferredGet, NeedsAStretchedCluster) {
  const std::string command = "cluster preferredfaultdomain get";
  const auto together = [](RecordingLibrary& library) { library.stretched = false; };
  const Outcome refused =
      Failed("Cannot get preferred fault domain if host is not in a stretched cluster.");
  const Strings first = kOpen + "GetClusterConfig()";
  const Strings both = first + "IsInStretchedCluster()";
  Check(command, kNotEnabled, first, refused);
  Check(command, together, both, refused);
  Check(command, both + "GetPreferredFaultDomainInfo()",
        {"{Preferred Fault Domain Name: preferred-name, Preferred Fault Domain Id: preferred-id}",
         {}});
}

TEST(FaultDomainPreferredSet, CountsCharactersOnTheWitnessOnly) {
  const std::string command = "cluster preferredfaultdomain set --preferred-fault-domain-name ";
  const auto onWitness = [](RecordingLibrary& library) { library.isWitness = true; };
  const Strings asked = {"IsWitnessNode()"};
  Check(command + "''", {}, Failed("Cannot set preferred fault domain name as empty."));
  Check(command + kLongest + "x", {},
        Failed("Preferred Fault domain name cannot exceed 256 characters.", "true"));
  Check(command + "site-b", asked,
        Failed("Cannot set preferred fault domain if the host is not a witness node.", "true"));
  Check(command + kLongest, onWitness,
        asked + kOpen[0] + kOpen[1] + ("SetPreferredFaultDomain(" + kLongest + ")"), kTrue);
}

}  // namespace
