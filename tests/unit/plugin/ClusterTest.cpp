// Status and membership.

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>

#include "Cases.h"
#include "frame/Text.h"

using namespace Testing;

namespace {

constexpr const char* kUuid = "01234567-89ab-cdef-0123-456789abcdef";
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
  const struct {
    std::uint64_t timestamp;
    const char* zone;
    const char* printed;
  } cases[] = {
      {0, "UTC", "0.0"},
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
  const std::string longest = std::string(255, 'x') + "\u20ac";  // 256 characters, 258 bytes
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
  Check(witness + longest + "x", kNotEnabled, kConfig, badName);
  Check(join + " --witness-preferred-fault-domain ''", kNotEnabled, kConfig,
        Failed("--witness-preferred-fault-domain is valid only when --witness-node is "
               "specified."));
  Check(join, kNotEnabled, joined(", false, , false"), kTrue);
  Check(join + " --wait", kNotEnabled, joined(", false, , true"), kTrue);
  Check(witness + longest, kNotEnabled, joined(", true, " + longest + ", false"), kTrue);
  RecordingLibrary library;
  library.config.enabled = false;
  const Outcome malformed = Testing::Run("cluster join -u 0123");
  EXPECT_EQ(malformed.root, "false");
  EXPECT_EQ(malformed.errors.size(), 1U);
  EXPECT_EQ(library.calls, kConfig);
}

TEST(ClusterNew, CreatesUnderANewUuidEachTime) {
  RecordingLibrary library;
  library.config.enabled = false;
  for (int time = 0; time < 2; ++time) EXPECT_EQ(Testing::Run("cluster new"), kTrue);
  const std::regex uuid("[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}");
  for (const std::size_t call : {3u, 7u}) {
    EXPECT_EQ(std::regex_replace(library.calls.at(call), uuid, "UUID"),
              "CreateCluster(UUID, true, false)");
  }
  EXPECT_NE(library.calls[3], library.calls[7]);
  Check("cluster new", kConfig, kAlreadyIn);
}

TEST(ClusterNew, NeedsAUuid) {
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

/// A notification script that notes each of its words.
class ClusterLeave : public testing::Test {
 protected:
  ClusterLeave() {
    if (mkdtemp(folder_.data()) == nullptr) throw std::runtime_error("no temporary folder");
    Host::notifyScript = folder_ + "/notify script.sh";
    std::ofstream(Host::notifyScript) << "#!/bin/sh\ncd \"$(dirname \"$0\")\"\n"
                                         "for word; do printf '<%s>' \"$word\" >>told; done\n";
    std::filesystem::permissions(Host::notifyScript, std::filesystem::perms::owner_all);
  }
  ~ClusterLeave() override {
    std::filesystem::remove_all(folder_);
    Host::notifyScript = "/bin/true";
  }

  /// Checks what the command leaves of a cluster with these datastores, and what it tells.
  void CheckLeaving(const Strings& datastores, const Testing::SetUp& setUp, const Strings& calls,
                    const Outcome& outcome, const std::string& told) {
    const auto prepare = [&](RecordingLibrary& library) {
      for (const auto& name : datastores) library.datastores.emplace_back("u", name, false);
      if (setUp) setUp(library);
    };
    Check("cluster leave", prepare, calls, outcome);
    std::ifstream file(folder_ + "/told");
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), told);
    std::filesystem::remove(folder_ + "/told");
  }

 private:
  std::string folder_ = testing::TempDir() + "leaveXXXXXX";
};

TEST_F(ClusterLeave, TellsOfTheDatastores) {
  const Strings read = kConfig + "GetDatastores()";
  const Strings left = read + "LeaveCluster(false)";
  const auto failing = [](std::size_t place) -> Testing::SetUp {
    using HostCtl::Lib::Dovra::DovraCtlException;
    const auto busy = std::make_exception_ptr(DovraCtlException("busy"));
    return [=](RecordingLibrary& library) { library.exceptions[place] = busy; };
  };
  CheckLeaving({"a", "it's; $(b)"}, {}, left, kTrue, "<-t><PreUnmount><-d><a,it's; $(b)>");
  CheckLeaving({"a", "b"}, failing(4), left, Failed("busy"),
               "<-t><PreUnmount><-d><a,b><-t><FailedUnmount><-d><a,b>");
  CheckLeaving({}, failing(4), left, Failed("busy"), "<-t><PreUnmount><-d>");
  // It says nothing before it knows what to say.
  CheckLeaving({"a"}, failing(3), read, Failed("busy"), "");
  CheckLeaving({"a"}, kNotEnabled, kConfig, Failed("The host is not in a Dovra cluster."), "");
}

TEST(ShellWord, QuotesWhatIsNotPlain) {
  using OrvaneCli::DovraNamespace::ShellWord;
  EXPECT_EQ(ShellWord("aZ09._-,:/@+"), "aZ09._-,:/@+");
  EXPECT_EQ(ShellWord("\u00e4 it's\n"), "'\u00e4 it'\\''s\n'");
}

}  // namespace
