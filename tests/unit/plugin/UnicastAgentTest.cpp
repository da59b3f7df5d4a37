#include "Cases.h"

using namespace Testing;

namespace {

const std::string kNil = "00000000-0000-0000-0000-000000000000";
constexpr std::int64_t kWrap = std::int64_t{1} << 32;  // what 32 bits lose

// `add` and `remove` ask for the kind of host before all else, `list` and `clear` when they hold
// the library.
const Strings kAsked = {"IsWitnessNode()"};
const Strings kAskedAndOpen = kAsked + kOpen;
const Strings kEnabled = kOpen + Strings{"GetClusterConfig()"};
const Strings kEnabledAndAsked = kEnabled + kAsked;
const Strings kRead = kEnabledAndAsked + Strings{"GetUnicastAgents()"};

const SetUp kOnWitness = [](RecordingLibrary& library) { library.isWitness = true; };
const SetUp kNotEnabled = [](RecordingLibrary& library) { library.config.enabled = false; };

SetUp Witnesses(const Strings& witnesses) {
  return [=](RecordingLibrary& library) { library.unicastWitnesses = witnesses; };
}
SetUp Agents(const Strings& agents, bool isSettled = true) {
  return [=](RecordingLibrary& library) {
    library.unicastAgents = agents;
    library.removeUnicastAgentResult = isSettled;
  };
}

TEST(UnicastAgentAdd, HandsOverTheAgent) {
  const char* const command = "cluster unicastagent add";
  const Given wholeWitness = {{"type", "witness"},     {"uuid", "w"},
                              {"addr", "fe80::1"},     {"supports-unicast", true},
                              {"port", kWrap + 12321}, {"bound-interface-name", "knic1"}};
  const Given wholeNode = {{"type", "node"},
                           {"uuid", "?"},
                           {"addr", "::1"},
                           {"port", -1},
                           {"supports-unicast", false},
                           {"bound-interface-name", ""}};
  const auto witness = [](const std::string& arguments) {
    return kAskedAndOpen + Strings{"GetUnicastWitnesses()", "AddUnicastAgent(" + arguments + ", )"};
  };
  Check(command, {}, {{"addr", "1.2.3.4"}},
        witness(kNil + ", true, false, v4 1.2.3.4, 12321, false, "), kTrue);
  Check(command, {}, wholeWitness, witness("w, true, true, v6 fe80::1, 2147483647, true, knic1"),
        kTrue);
  Check(command, Witnesses({"w1", "w2"}), wholeNode,
        kAskedAndOpen + Strings{"AddUnicastAgent(?, false, false, v6 ::1, -1, true, , )",
                                "RefreshUnicastAgents()"},
        kTrue);
}

TEST(UnicastAgentAdd, Refuses) {
  const char* const command = "cluster unicastagent add";
  const std::string noUuid = "Can not add unicastagent without specifying node-uuid";
  const std::string noSupport = "Can not add unicastagent without specifying unicast support";
  const std::string second =
      "Dovra does not support connecting to more than one unicast witness, and there ";
  const Strings looked = kAskedAndOpen + Strings{"GetUnicastWitnesses()"};
  const Given bad = {{"addr", "1.2.3"}}, good = {{"addr", "1.2.3.4"}};
  Check(command, kOnWitness, bad, kAsked,
        Failed("This host is a witness node which doesn't support adding unicast agent."));
  Check(command, {}, {{"type", "node"}, {"addr", "1.2.3"}}, kAskedAndOpen, Failed(noUuid));
  Check(command, {}, {{"type", "Witness"}, {"addr", "1.2.3.4"}}, kAskedAndOpen, Failed(noUuid));
  Check(command, {}, {{"type", "node"}, {"uuid", ""}, {"addr", "1.2.3"}}, kAskedAndOpen,
        Failed(noSupport));
  Check(command, Witnesses({"w1"}), bad, kAskedAndOpen, Failed("Invalid IP address 1.2.3"));
  Check(command, Witnesses({"w1"}), good, looked,
        Failed(second + "is already a unicast witness configured: w1."));
  Check(command, Witnesses({"w1", "w2"}), good, looked,
        Failed(second + "are already multiple unicast witnesses configured: w1,w2."));
}

TEST(UnicastAgentRemove, HandsOverTheAgentOrRefuses) {
  const char* const command = "cluster unicastagent remove";
  Check(command, {}, {{"addr", "fe80::1"}},
        kAskedAndOpen + Strings{"RemoveUnicastAgent(" + kNil + ", v6 fe80::1, 12321)"}, kTrue);
  Check(command, Agents({}, false), {{"uuid", "?"}, {"addr", "1.2.3.4"}, {"port", -kWrap - 1}},
        kAskedAndOpen +
            Strings{"RemoveUnicastAgent(?, v4 1.2.3.4, -2147483648)", "RefreshUnicastAgents()"},
        kTrue);
  Check(command, kOnWitness, {{"addr", "1.2.3"}}, kAsked,
        Failed("This host is a witness node which doesn't support removing unicast agent."));
  Check(command, {}, {{"addr", ""}}, kAskedAndOpen, Failed("Invalid IP address "));
}

TEST(UnicastAgentList, ShowsEntriesAsTheyStand) {
  const struct {
    std::string entry;
    Strings row;
  } rows[] = {
      {kNil + ";1;0;10.0.0.5;12321;", {kNil, "1", "false", "10.0.0.5", "12321", ""}},
      {" n ;0;1; fe80::1 ;080;knic1;", {" n ", "0", "true", " fe80::1 ", "80", "knic1;"}},
      {";yes;2;;80http;a;b", {"", "0", "true", "", "80", "a;b"}},
      {"n; \t-2x;+0;a;-7;", {"n", "-2", "false", "a", "-7", ""}},
      // Cut to 32 bits, these would be 0, 0 and 12321.
      {"n;4294967296;4294967296;a;4294979617;", {"n", "4294967296", "true", "a", "4294979617", ""}},
      {"n;-99999999999999999999;- 1;a;99999999999999999999;",
       {"n", "-9223372036854775808", "false", "a", "9223372036854775807", ""}},
  };
  Strings entries;
  std::string shown;
  for (const auto& [entry, row] : rows) {
    entries.push_back(entry);
    shown += (shown.empty() ? "[{NodeUuid: " : ", {NodeUuid: ") + row[0] +
             ", IsWitness: " + row[1] + ", Supports Unicast: " + row[2] +
             ", IP Address: " + row[3] + ", Port: " + row[4] + ", Iface Name: " + row[5] + "}";
  }
  Check("cluster unicastagent list", Agents(entries), {}, kRead, {shown + "]", {}});
}

TEST(UnicastAgentList, LeavesAnEmptyListOrNone) {
  const char* const command = "cluster unicastagent list";
  Check(command, {}, {}, kRead, {"[]", {}});
  Check(command, kNotEnabled, {}, kEnabled, Failed("Dovra isn't enabled on the host"));
  Check(command, kOnWitness, {}, kEnabledAndAsked,
        Failed("Unable to list unicast agent, this host is a witness node which doesn't "
               "support listing unicast agent.",
               "[]"));
}

TEST(UnicastAgentClear, RemovesEveryAgentOrRefuses) {
  const char* const command = "cluster unicastagent clear";
  const Strings agents = {kNil + ";1;0;10.0.0.5;12321;", "n;0;1;fe80::1;4294979617;knic1;b"};
  const Strings removed = kRead + Strings{"RemoveUnicastAgent(" + kNil + ", v4 10.0.0.5, 12321)",
                                          "RemoveUnicastAgent(n, v6 fe80::1, 2147483647)"};
  Check(command, Agents(agents, false), {}, removed + Strings{"RefreshUnicastAgents()"}, kTrue);
  Check(command, Agents(agents), {}, removed, kTrue);
  Check(command, Agents({}, false), {}, kRead, kTrue);
  Check(command, kNotEnabled, {}, kEnabled, Failed("Dovra isn't enabled on the host"));
  Check(command, kOnWitness, {}, kEnabledAndAsked,
        Failed("Unable to remove unicast agent(s), this host is a witness node which "
               "doesn't support removing unicast agent."));
}

TEST(UnicastAgentEntry, BadOneEndsListingAndClearing) {
  const std::string invalid = "Invalid unicastAgent entry for ";
  const std::string unnamed = "Invalid unicastAgent entries";
  const struct {
    std::string entry, listed, cleared;
  } rows[] = {
      {"", invalid + "nodeuuid ", invalid + "nodeuuid "},
      {"n", invalid + "nodeuuid n", invalid + "nodeuuid n"},
      {"n;0", invalid + "isWitness n;0", unnamed},
      {"n;0;1", invalid + "ucast support n;0;1", unnamed},
      {"n;0;1;where", invalid + "ip n;0;1;where", unnamed},
      {"n;0;1;where;9", invalid + "port n;0;1;where;9", invalid + "port n;0;1;where;9"},
      {"n;0;1;where;9;", invalid + "nodeuuid last", "Invalid IP address where"},
  };
  const Strings removed = {"RemoveUnicastAgent(a, v4 1.1.1.1, 1)",
                           "RemoveUnicastAgent(b, v4 1.1.1.2, 2)"};
  for (const auto& [entry, listed, cleared] : rows) {
    const auto agents = Agents({"a;0;1;1.1.1.1;1;", "b;0;1;1.1.1.2;2;", entry, "last"}, false);
    Check("cluster unicastagent list", agents, {}, kRead, Failed(listed));
    Check("cluster unicastagent clear", agents, {}, kRead + removed, Failed(cleared));
  }
}

}  // namespace
