// Status, membership and fault domains.

#include <gmock/gmock.h>

#include <cstdlib>

#include "RecordingLibrary.h"

using namespace Testing;

namespace {

using HostCtl::Dovra::DovraDatastore;
using HostCtl::Lib::Dovra::DovraCtlException;

constexpr const char* kUuid = "01234567-89ab-cdef-0123-456789abcdef";
const std::string kLongest = std::string(255, 'x') + "\u20ac";  // 256 characters, 258 bytes
const Strings kConfig = kOpen + "GetClusterConfig()";
const Outcome kAlreadyIn = Failed(
    "The host is in a Dovra cluster and enabled for Dovra. You need to remove it from the cluster "
    "or disable Dovra.");

TEST(ClusterGet, ReportsTheCluster) {
  const auto witness = [](RecordingLibrary& library) {
    library.isWitness = library.unicastMode = true;
    library.members = {"m1", "m2"};
    library.generation = {"", UINT64_MAX, 999};
  };
  Check("cluster get", witness,
        kConfig + "IsLocalNodeWitness()" + "GetInfoFromTavdir()" + "GetUnicastMode()" +
            "GetConfigGeneration()" + "GetFormattedSystemDateTime()",
        {"Enabled: true, Current Local Time: now, Local Node UUID: local, Local Node Type: "
         "WITNESS, Local Node State: state, Local Node Health State: health, Sub-Cluster Master "
         "UUID: master, Sub-Cluster Backup UUID: backup, Sub-Cluster UUID: "
         "c0000000-0000-0000-0000-000000000001, Sub-Cluster Membership Entry Revision: "
         "9223372036854775807, Sub-Cluster Member Count: 2, Sub-Cluster Member UUIDs: m1, m2, "
         "Sub-Cluster Membership UUID: membership, Unicast Mode Enabled: true, Maintenance Mode "
         "State: maintenance, Config Generation: None 18446744073709551615 0.999"});
  RecordingLibrary library;
  library.members = Strings(65537, "m");
  const std::string large = Execute("cluster get").substr(0, 500);
  EXPECT_THAT(large, testing::HasSubstr("Local Node Type: NORMAL, "));
  EXPECT_THAT(large, testing::HasSubstr("Sub-Cluster Member Count: 65537, "));
  library.calls.clear();
  library.config.enabled = false;
  EXPECT_THAT(Execute("cluster get"),
              testing::MatchesRegex("Enabled: false(, [^:,]+: (|0|false)){15} ! Dovra Clustering "
                                    "is not enabled on this host"));
  EXPECT_EQ(library.calls, kConfig);
}

TEST(ClusterGet, PrintsTimestampsWithUnpaddedMilliseconds) {
  const std::tuple<std::uint64_t, const char*, const char*> cases[] = {
      {1000, "UTC", "1970-01-01T00:00:01.0"},
      {1456827630045, "<+0530>-5:30", "2016-03-01T15:50:30.45"},
      {UINT64_MAX, "UTC", "584556019-04-03T14:25:51.615"},
  };
  const std::string before =
      "Enabled: false, Maintenance Mode State: maintenance, Config Generation: uuid 7 ";
  for (const auto& [timestamp, zone, printed] : cases) {
    setenv("TZ", zone, 1);
    RecordingLibrary library;
    library.generation = {"uuid", 7, timestamp};
    EXPECT_THAT(Execute("cluster get"), testing::EndsWith(before + printed));
  }
  unsetenv("TZ");
}

TEST(ClusterJoin, ChecksInOrderAndJoins) {
  const std::string join = std::string("cluster join -u ") + kUuid;
  const std::string witness = join + " --witness-node --witness-preferred-fault-domain ";
  const auto joined = [](const std::string& arguments) {
    return kConfig + (std::string("JoinCluster(") + kUuid + arguments + ", false)");
  };
  const Outcome badName =
      Failed("Preferred fault domain name cannot be empty or exceed 256 characters.");
  Check("cluster join -u bad --witness-node", {}, kConfig, kAlreadyIn);
  Check(join + " --witness-node", kNotEnabled, kConfig,
        Failed("If --witness-node is specified, --witness-preferred-fault-domain must also be "
               "specified."));
  Check(witness + "''", kNotEnabled, kConfig, badName);
  Check(witness + kLongest + "x", kNotEnabled, kConfig, badName);
  Check(join + " --witness-preferred-fault-domain ''", kNotEnabled, kConfig,
        Failed("--witness-preferred-fault-domain is valid only when --witness-node is "
               "specified."));
  Check(join, kNotEnabled, joined(", false, , false"), "true");
  Check(join + " --wait", kNotEnabled, joined(", false, , true"), "true");
  Check(witness + kLongest, kNotEnabled, joined(", true, " + kLongest + ", false"), "true");
  RecordingLibrary library;
  library.config.enabled = false;
  EXPECT_THAT(Execute("cluster join -u 0123"),
              testing::StartsWith("false ! \"0123\" is not a UUID"));
}

TEST(NewUuid, IsAnotherEachTimeOrMissing) {
  RecordingLibrary::createdUuids = 0;
  Check("cluster new", kNotEnabled, kConfig + "CreateCluster(1, true, false)", "true");
  Check("cluster new", kNotEnabled, kConfig + "CreateCluster(2, true, false)", "true");
  Check("datastore add -n n", {}, kOpen + "AddDatastore(3, n, false)", "true");
  Check("datastore add -n n -u ''", {}, kOpen + "AddDatastore(4, n, false)", "true");
  for (const auto failing : {&RecordingLibrary::createsUuids, &RecordingLibrary::packsUuids}) {
    const auto without = [&](RecordingLibrary& library) {
      library.config.enabled = library.*failing = false;
    };
    Check("cluster new", without, kConfig, Failed("Unable to generate a UUID"));
    Check("datastore add -n n", without, kOpen, Failed("Unable to generate a UUID"));
  }
  Check("cluster new", {}, kConfig, kAlreadyIn);
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
  // The numbers are the positions of the calls that fail.
  const std::tuple<Strings, std::set<std::size_t>, Strings, Outcome> cases[] = {
      {{"a", "it's; $(b)"}, {}, left("'a,it'\\''s; $(b)'"), "true"},
      {{"aZ09._-,:/@+"}, {}, left("aZ09._-,:/@+"), "true"},
      {{"a", "\u00e4"}, {5}, failed("'a,\u00e4'"), Failed("busy")},
      {{"a"}, {5, 6}, failed("a"), Failed("busy", Failed("busy"))},
      {{}, {5}, left(""), Failed("busy")},
      {{"a"}, {3}, read, Failed("busy")},  // no notification before the names are known
  };
  for (const auto& [datastores, failing, calls, outcome] : cases) {
    const auto fail = [&datastores = datastores, &failing = failing](RecordingLibrary& library) {
      for (const auto& name : datastores) {
        library.datastores.push_back(std::make_shared<DovraDatastore>("u", name, false));
        library.datastores.push_back(nullptr);
      }
      for (const std::size_t position : failing) {
        library.exceptions[position] = std::make_exception_ptr(DovraCtlException("busy"));
      }
    };
    Check("cluster leave", fail, calls, outcome);
  }
  Check("cluster leave", kNotEnabled, kConfig, Failed("The host is not in a Dovra cluster."));
}

TEST(FaultDomain, IsShownAndSet) {
  const Strings named = kOpen + "GetFaultDomainName()" + "GetClusterConfig()";
  Check("faultdomain get", {}, named + "GetFaultDomainId()",
        {"faultDomainName: site-a, faultDomainId: fault-domain-id"});
  Check("faultdomain get", kNotEnabled, named, {"faultDomainName: site-a, faultDomainId: "});
  const std::string longest = std::string(253, 'x') + "\u20ac";  // 256 bytes
  Check("faultdomain set -n " + longest + "x", {}, {},
        Failed("Fault domain name cannot exceed 256 characters.", "true"));
  Check("faultdomain set -n " + longest, {}, kOpen + ("SetFaultDomain(" + longest + ")"), "true");
}

TEST(PreferredFaultDomain, IsShownInAStretchedClusterAndSetOnTheWitness) {
  const std::string get = "cluster preferredfaultdomain get";
  const Outcome refused =
      Failed("Cannot get preferred fault domain if host is not in a stretched cluster.");
  const Strings asked = kConfig + "IsInStretchedCluster()";
  Check(get, kNotEnabled, kConfig, refused);
  Check(
      get, [](RecordingLibrary& library) { library.stretched = false; }, asked, refused);
  Check(get, {}, asked + "GetPreferredFaultDomainInfo()",
        {"Preferred Fault Domain Name: preferred-name, Preferred Fault Domain Id: preferred-id"});

  const std::string set = "cluster preferredfaultdomain set -n ";
  Check(set + "''", {}, {}, Failed("Cannot set preferred fault domain name as empty."));
  Check(set + kLongest + "x", {}, {},
        Failed("Preferred Fault domain name cannot exceed 256 characters.", "true"));
  Check(set + "site-b", {}, {"IsWitnessNode()"},
        Failed("Cannot set preferred fault domain if the host is not a witness node.", "true"));
  Check(set + kLongest, kOnWitness,
        Strings{"IsWitnessNode()"} + kOpen[0] + kOpen[1] +
            ("SetPreferredFaultDomain(" + kLongest + ")"),
        "true");
}

}  // namespace
