#include <gtest/gtest.h>

#include "RecordingLibrary.h"

using namespace Testing;

namespace {

const std::string kNil = "00000000-0000-0000-0000-000000000000";

// `add` and `remove` check for a witness first, `list` and `clear` after they open the library.
const Strings kAsked = {"IsWitnessNode()"};
const Strings kAskedAndOpen = kAsked + kOpen[0] + kOpen[1];
const Strings kEnabled = kOpen + "GetClusterConfig()";
const Strings kEnabledAndAsked = kEnabled + kAsked[0];
const Strings kRead = kEnabledAndAsked + "GetUnicastAgents()";

SetUp Witnesses(const Strings& witnesses) {
  return [=](RecordingLibrary& library) { library.unicastWitnesses = witnesses; };
}
SetUp Agents(const Strings& agents, const std::vector<int>& removeResults = {true}) {
  return [=](RecordingLibrary& library) {
    library.unicastAgents = agents;
    library.removeUnicastAgentResults = removeResults;
  };
}

TEST(UnicastAgentAdd, HandsOverTheAgentOrRefuses) {
  const std::string command = "cluster unicastagent add ";
  const Strings looked = kAskedAndOpen + "GetUnicastWitnesses()";
  Check(command + "--addr 1.2.3.4", {},
        looked + ("AddUnicastAgent(" + kNil + ", true, false, v4 1.2.3.4, 12321, false, , )"),
        "true");
  // Cut to 32 bits, the port would be the one by default.
  Check(command + "-t witness -u w -a fe80::1 -U true -p 4294979617 -i knic1", {},
        looked + "AddUnicastAgent(w, true, true, v6 fe80::1, 2147483647, true, knic1, )", "true");
  Check(command + "-t node -u ? -a ::1 -U false -p -1 -i ''", Witnesses({"w1", "w2"}),
        kAskedAndOpen + "AddUnicastAgent(?, false, false, v6 ::1, -1, true, , )" +
            "RefreshUnicastAgents()",
        "true");

  const std::string second =
      "Dovra does not support connecting to more than one unicast witness, and there ";
  Check(command + "-a 1.2.3", kOnWitness, kAsked,
        Failed("This host is a witness node which doesn't support adding unicast agent."));
  Check(command + "-a 1.2.3 -t node", {}, kAskedAndOpen,
        Failed("Can not add unicastagent without specifying node-uuid"));
  Check(command + "-a 1.2.3 -t node -u ''", {}, kAskedAndOpen,
        Failed("Can not add unicastagent without specifying unicast support"));
  Check(command + "-a 1.2.3", Witnesses({"w1"}), kAskedAndOpen, Failed("Invalid IP address 1.2.3"));
  Check(command + "-a 1.2.3.4", Witnesses({"w1"}), looked,
        Failed(second + "is already a unicast witness configured: w1."));
  Check(command + "-a 1.2.3.4", Witnesses({"w1", "w2"}), looked,
        Failed(second + "are already multiple unicast witnesses configured: w1,w2."));
}

TEST(UnicastAgentRemove, HandsOverTheAgentOrRefuses) {
  const std::string command = "cluster unicastagent remove ";
  Check(command + "-a fe80::1", {},
        kAskedAndOpen + ("RemoveUnicastAgent(" + kNil + ", v6 fe80::1, 12321)"), "true");
  Check(command + "-u ? -a 1.2.3.4 -p -4294967297", Agents({}, {false}),
        kAskedAndOpen + "RemoveUnicastAgent(?, v4 1.2.3.4, -2147483648)" + "RefreshUnicastAgents()",
        "true");
  Check(command + "-a 1.2.3", kOnWitness, kAsked,
        Failed("This host is a witness node which doesn't support removing unicast agent."));
  Check(command + "-a ''", {}, kAskedAndOpen, Failed("Invalid IP address "));
}

TEST(UnicastAgentList, ShowsEntriesAsTheyStand) {
  const std::pair<std::string, Strings> rows[] = {
      {kNil + ";1;0;10.0.0.5;12321;", {kNil, "1", "false", "10.0.0.5", "12321", ""}},
      {" n ;0;1; fe80::1 ;080;knic1;", {" n ", "0", "true", " fe80::1 ", "80", "knic1;"}},
      {";yes;2;;80http;a;b", {"", "0", "true", "", "80", "a;b"}},
      {"n; \t-2x;- 1;a;+7;", {"n", "-2", "false", "a", "7", ""}},
      {"n;-99999999999999999999;4294967296;a;99999999999999999999;",
       {"n", "-9223372036854775808", "true", "a", "9223372036854775807", ""}},
  };
  Strings entries;
  std::string shown;
  for (const auto& [entry, row] : rows) {
    entries.push_back(entry);
    shown += (shown.empty() ? "NodeUuid: " : ", NodeUuid: ") + row[0] + ", IsWitness: " + row[1] +
             ", Supports Unicast: " + row[2] + ", IP Address: " + row[3] + ", Port: " + row[4] +
             ", Iface Name: " + row[5];
  }
  Check("cluster unicastagent list", Agents(entries), kRead, {shown});
}

TEST(UnicastAgentListAndClear, CheckTheHostFirst) {
  const std::string list = "cluster unicastagent list", clear = "cluster unicastagent clear";
  const Outcome notEnabled = Failed("Dovra isn't enabled on the host");
  Check(list, {}, kRead, {""});
  Check(list, kNotEnabled, kEnabled, notEnabled);
  Check(list, kOnWitness, kEnabledAndAsked,
        Failed("Unable to list unicast agent, this host is a witness node which doesn't support "
               "listing unicast agent.",
               ""));
  Check(clear, {}, kRead, "true");
  Check(clear, kNotEnabled, kEnabled, notEnabled);
  Check(clear, kOnWitness, kEnabledAndAsked,
        Failed("Unable to remove unicast agent(s), this host is a witness node which doesn't "
               "support removing unicast agent."));
}

TEST(UnicastAgentClear, RefreshesAfterAnyRemovalThatAsksForIt) {
  const Strings agents = {kNil + ";1;0;10.0.0.5;12321;", "n;0;1;fe80::1;4294979617;knic1;b"};
  const Strings removed = kRead + ("RemoveUnicastAgent(" + kNil + ", v4 10.0.0.5, 12321)") +
                          "RemoveUnicastAgent(n, v6 fe80::1, 2147483647)";
  Check("cluster unicastagent clear", Agents(agents), removed, "true");
  for (const auto& results : {std::vector<int>{false, true}, {true, false}}) {
    Check("cluster unicastagent clear", Agents(agents, results), removed + "RefreshUnicastAgents()",
          "true");
  }
}

TEST(UnicastAgentEntry, BadOneEndsListingAndClearing) {
  const std::string invalid = "Invalid unicastAgent entry for ";
  const std::string unnamed = "Invalid unicastAgent entries";
  const std::tuple<std::string, std::string, std::string> rows[] = {
      {"n", invalid + "nodeuuid n", invalid + "nodeuuid n"},
      {"n;0", invalid + "isWitness n;0", unnamed},
      {"n;0;1", invalid + "ucast support n;0;1", unnamed},
      {"n;0;1;where", invalid + "ip n;0;1;where", unnamed},
      {"n;0;1;where;9", invalid + "port n;0;1;where;9", invalid + "port n;0;1;where;9"},
      {"n;0;1;where;9;", invalid + "nodeuuid last", "Invalid IP address where"},
  };
  const Strings removed =
      kRead + "RemoveUnicastAgent(a, v4 1.1.1.1, 1)" + "RemoveUnicastAgent(b, v4 1.1.1.2, 2)";
  for (const auto& [entry, listed, cleared] : rows) {
    const auto agents = Agents({"a;0;1;1.1.1.1;1;", "b;0;1;1.1.1.2;2;", entry, "last"}, {false});
    Check("cluster unicastagent list", agents, kRead, Failed(listed));
    Check("cluster unicastagent clear", agents, removed, Failed(cleared));
  }
}

}  // namespace
