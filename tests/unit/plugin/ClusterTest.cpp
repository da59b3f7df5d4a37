// Status and membership.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "Run.h"
#include "frame/Text.h"

namespace Testing {

using namespace OrvaneCli::DovraNamespace;
using Calls = std::vector<std::string>;

namespace {

constexpr const char* kUuid = "01234567-89ab-cdef-0123-456789abcdef";
constexpr const char* kAlreadyIn =
    "The host is in a Dovra cluster and enabled for Dovra. You need to remove it from the cluster "
    "or disable Dovra.";
constexpr const char* kEmptyRecord =
    "{Enabled: false, Current Local Time: , Local Node UUID: , Local Node Type: , Local Node "
    "State: , Local Node Health State: , Sub-Cluster Master UUID: , Sub-Cluster Backup UUID: , "
    "Sub-Cluster UUID: , Sub-Cluster Membership Entry Revision: 0, Sub-Cluster Member Count: 0, "
    "Sub-Cluster Member UUIDs: [], Sub-Cluster Membership UUID: , Unicast Mode Enabled: false, "
    "Maintenance Mode State: , Config Generation: }";

/// "Config Generation" as the command prints it.
std::string PrintedGeneration(std::uint64_t timestamp, const char* zone = "UTC") {
  setenv("TZ", zone, 1);
  RecordingLibrary library;
  library.generation = {kUuid, 7, timestamp};
  const std::string root = Testing::Run("cluster get").root;
  unsetenv("TZ");
  const auto begin = root.find("Config Generation: ") + 19;
  return root.substr(begin, root.size() - begin - 1);
}

TEST(ClusterGetTest, ReportsTheCluster) {
  RecordingLibrary library;
  library.isWitness = true;
  library.unicastMode = true;
  library.members = {"m1", "m2"};
  EXPECT_EQ(Testing::Run("cluster get"),
            (Outcome{"{Enabled: true, Current Local Time: now, Local Node UUID: local, Local Node "
                     "Type: WITNESS, Local Node State: state, Local Node Health State: health, "
                     "Sub-Cluster Master UUID: master, Sub-Cluster Backup UUID: backup, "
                     "Sub-Cluster UUID: c0000000-0000-0000-0000-000000000001, Sub-Cluster "
                     "Membership Entry Revision: 9, Sub-Cluster Member Count: 2, Sub-Cluster "
                     "Member UUIDs: [m1, m2], Sub-Cluster Membership UUID: membership, Unicast "
                     "Mode Enabled: true, Maintenance Mode State: maintenance, Config Generation: "
                     "None 0 0.0}",
                     {}}));
  EXPECT_EQ(library.calls, (Calls{"GetDovraPlugin()", "GetDovraInfo()", "GetClusterConfig()",
                                  "IsLocalNodeWitness()", "GetInfoFromTavdir()", "GetUnicastMode()",
                                  "GetConfigGeneration()", "GetFormattedSystemDateTime()"}));
}

TEST(ClusterGetTest, LeavesTheEmptyRecordOutsideAnyCluster) {
  RecordingLibrary library;
  library.config.enabled = false;
  EXPECT_EQ(Testing::Run("cluster get"),
            (Outcome{kEmptyRecord, {"Dovra Clustering is not enabled on this host"}}));
  EXPECT_EQ(library.calls.back(), "GetClusterConfig()");
}

TEST(ClusterGetTest, PrintsTimestampsWithUnpaddedMilliseconds) {
  const struct {
    std::uint64_t timestamp;
    const char* zone;
    const char* printed;
  } cases[] = {
      {0, "UTC", "0.0"},
      {5, "UTC", "0.5"},
      {999, "UTC", "0.999"},
      {1000, "UTC", "1970-01-01T00:00:01.0"},
      {1456827630450, "UTC", "2016-03-01T10:20:30.450"},
      {1456827630045, "<+0530>-5:30", "2016-03-01T15:50:30.45"},
      {1456827630005, "<-0800>8", "2016-03-01T02:20:30.5"},
      {UINT64_MAX, "UTC", "584556019-04-03T14:25:51.615"},
  };
  for (const auto& [timestamp, zone, printed] : cases) {
    EXPECT_EQ(PrintedGeneration(timestamp, zone), std::string(kUuid) + " 7 " + printed) << zone;
  }
}

TEST(ClusterJoinTest, ChecksInOrderAndJoins) {
  const std::string longest = std::string(255, 'x') + "\u20ac";  // 256 characters, 258 bytes
  const Calls toConfig = {"GetDovraPlugin()", "GetDovraInfo()", "GetClusterConfig()"};
  const struct {
    bool enabled;
    Given given;
    Outcome outcome;
    std::string joined;  ///< the arguments of `JoinCluster`; empty if it was not called
  } cases[] = {
      {true, {{"cluster-uuid", "bad"}, {"witness-node", true}}, {"none", {kAlreadyIn}}, ""},
      {false,
       {{"cluster-uuid", kUuid}, {"witness-node", true}},
       {"none",
        {"If --witness-node is specified, --witness-preferred-fault-domain must also be "
         "specified."}},
       ""},
      {false,
       {{"cluster-uuid", kUuid}, {"witness-node", true}, {"witness-preferred-fault-domain", ""}},
       {"none", {"Preferred fault domain name cannot be empty or exceed 256 characters."}},
       ""},
      {false,
       {{"cluster-uuid", kUuid},
        {"witness-node", true},
        {"witness-preferred-fault-domain", longest + "x"}},
       {"none", {"Preferred fault domain name cannot be empty or exceed 256 characters."}},
       ""},
      {false,
       {{"cluster-uuid", kUuid}, {"witness-preferred-fault-domain", ""}},
       {"none",
        {"--witness-preferred-fault-domain is valid only when --witness-node is specified."}},
       ""},
      {false, {{"cluster-uuid", kUuid}}, {"true", {}}, ", false, , false, false"},
      {false,
       {{"cluster-uuid", kUuid},
        {"wait", true},
        {"witness-node", true},
        {"witness-preferred-fault-domain", longest}},
       {"true", {}},
       ", true, " + longest + ", true, false"},
  };
  for (const auto& one : cases) {
    RecordingLibrary library;
    library.config.enabled = one.enabled;
    EXPECT_EQ(Testing::Run("cluster join", one.given), one.outcome);
    Calls calls = toConfig;
    if (!one.joined.empty())
      calls.push_back(std::string("JoinCluster(") + kUuid + one.joined + ")");
    EXPECT_EQ(library.calls, calls);
  }
}

TEST(ClusterJoinTest, ReportsAMalformedUuidAsAFailure) {
  RecordingLibrary library;
  library.config.enabled = false;
  const Outcome malformed = Testing::Run("cluster join", {{"cluster-uuid", "0123"}});
  EXPECT_EQ(malformed.root, "false");
  EXPECT_EQ(malformed.errors.size(), 1U);
  EXPECT_EQ(library.calls.back(), "GetClusterConfig()");
}

TEST(ClusterNewTest, CreatesUnderANewUuidEachTime) {
  RecordingLibrary library;
  library.config.enabled = false;
  EXPECT_EQ(Testing::Run("cluster new"), (Outcome{"true", {}}));
  EXPECT_EQ(Testing::Run("cluster new"), (Outcome{"true", {}}));
  EXPECT_NE(library.calls[3], library.calls[7]);
  EXPECT_EQ(library.calls[3].size(), std::string("CreateCluster(, true, false)").size() + 36);
  library.config.enabled = true;
  EXPECT_EQ(Testing::Run("cluster new"), (Outcome{"none", {kAlreadyIn}}));
}

TEST(ClusterRestoreTest, PassesTheBootFlag) {
  RecordingLibrary library;
  EXPECT_EQ(Testing::Run("cluster restore", {{"boot", true}}), (Outcome{"true", {}}));
  EXPECT_EQ(library.calls.back(), "RestoreClusterConfig(true)");
  EXPECT_EQ(Testing::Run("cluster restore"), (Outcome{"true", {}}));
  EXPECT_EQ(library.calls.back(), "RestoreClusterConfig(false)");
}

/// A notification script that writes each of its words on a line of its own.
class ClusterLeaveTest : public testing::Test {
 protected:
  ClusterLeaveTest() {
    std::filesystem::create_directory(folder_);
    Host::notifyScript = folder_ / "notify script.sh";
    std::ofstream(Host::notifyScript) << "#!/bin/sh\ncd \"$(dirname \"$0\")\"\n"
                                         "for word; do printf '<%s>' \"$word\" >>told; done\n";
    std::filesystem::permissions(Host::notifyScript, std::filesystem::perms::owner_all);
  }
  ~ClusterLeaveTest() override {
    std::filesystem::remove_all(folder_);
    Host::notifyScript = "/bin/true";
  }

  std::string Told() const {
    std::ifstream file(folder_ / "told");
    return {std::istreambuf_iterator<char>(file), {}};
  }

  RecordingLibrary library_;

 private:
  std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() / ("leave-test-" + GenerateUuid());
};

TEST_F(ClusterLeaveTest, TellsOfTheDatastoresAndLeaves) {
  library_.datastores = {{"u1", "a", true}, {"u2", "it's; $(b)", false}};
  EXPECT_EQ(Testing::Run("cluster leave"), (Outcome{"true", {}}));
  EXPECT_EQ(Told(), "<-t><PreUnmount><-d><a,it's; $(b)>");
  EXPECT_EQ(library_.calls, (Calls{"GetDovraPlugin()", "GetDovraInfo()", "GetClusterConfig()",
                                   "GetDatastores()", "LeaveCluster(false)"}));
}

TEST_F(ClusterLeaveTest, TellsOfAFailureToo) {
  library_.datastores = {{"u1", "a", true}, {"u2", "b", false}};
  library_.failures["LeaveCluster"] = "busy";
  EXPECT_EQ(Testing::Run("cluster leave"), (Outcome{"none", {"busy"}}));
  EXPECT_EQ(Told(), "<-t><PreUnmount><-d><a,b><-t><FailedUnmount><-d><a,b>");
}

TEST_F(ClusterLeaveTest, WithoutDatastoresOnlyTheFirstWordIsSaid) {
  library_.failures["LeaveCluster"] = "busy";
  EXPECT_EQ(Testing::Run("cluster leave"), (Outcome{"none", {"busy"}}));
  EXPECT_EQ(Told(), "<-t><PreUnmount><-d>");
}

TEST_F(ClusterLeaveTest, SaysNothingBeforeItKnowsWhatToSay) {
  library_.failures["GetDatastores"] = "broken";
  EXPECT_EQ(Testing::Run("cluster leave"), (Outcome{"none", {"broken"}}));
  library_.config.enabled = false;
  EXPECT_EQ(Testing::Run("cluster leave"),
            (Outcome{"none", {"The host is not in a Dovra cluster."}}));
  EXPECT_EQ(Told(), "");
}

TEST(ShellWordTest, QuotesWhatIsNotPlain) {
  EXPECT_EQ(ShellWord("aZ09._-,:/@+"), "aZ09._-,:/@+");
  EXPECT_EQ(ShellWord(""), "");
  EXPECT_EQ(ShellWord("a b"), "'a b'");
  EXPECT_EQ(ShellWord("it's"), "'it'\\''s'");
  EXPECT_EQ(ShellWord("\u00e4\n"), "'\u00e4\n'");
}

}  // namespace

}  // namespace Testing
