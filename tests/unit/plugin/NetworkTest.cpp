#include <array>

#include "Cases.h"

using namespace Testing;
using CliTools::CallSpec::Input;
using HostCtl::Dovra::DovraIpAddress;
using HostCtl::Dovra::DovraKnicConfig2;
using HostCtl::Network::Ipv4Address;
using HostCtl::Network::Ipv6Address;

namespace {

constexpr std::int64_t kWrap = std::int64_t{1} << 32;  // what 32 bits lose

DovraIpAddress V4(const std::string& text) {
  return DovraIpAddress(Ipv4Address(text));
}
DovraIpAddress V6(const std::string& text) {
  return DovraIpAddress(Ipv6Address(text));
}

/// An interface of which nothing is as it is by default; `port` tells two of them apart.
DovraKnicConfig2 Knic(const std::string& name, int port = 1) {
  return DovraKnicConfig2(name, V4("224.0.0.1"), V6("ff02::1"), V4("224.0.0.2"), V6("ff02::2"),
                          port, 2, 3, 4, false, true, "uuid-" + name);
}
/// An interface that holds each group in the other family's place, and carries all traffic.
DovraKnicConfig2 Swapped() {
  return DovraKnicConfig2("knic0", V6("ff02::1"), V4("224.0.0.1"), V6("ff02::2"), V4("224.0.0.2"),
                          1, 2, 3, 4, true, true, "");
}

SetUp InUse(const std::vector<DovraKnicConfig2>& knics, bool forDovra = true) {
  return [=](RecordingLibrary& library) {
    (forDovra ? library.knicInUseForDovra : library.knicInUseForWitness) = true;
    library.knics = knics;
  };
}
const SetUp kHoldsNull = [](RecordingLibrary& library) {
  InUse({Knic("knic0"), Knic("knic0")})(library);
  library.knicsHoldNull = true;
};
const SetUp kTooOld = [](RecordingLibrary& library) { library.hasInfo2 = false; };
const std::string kNoInfo2 = "Could not get DovraInfo2. Plugin version mismatch?";

/// The call for interface knic0 with other parameters.
Given With(const Given& others) {
  Given given = {{"interface-name", "knic0"}};
  given.insert(given.end(), others.begin(), others.end());
  return given;
}

const Strings kAsked = kOpen + Strings{"IsKnicInUse(knic0, dovra)"};
const Strings kAskedBoth = kAsked + Strings{"IsKnicInUse(knic0, witness)"};
const Strings kRead = kAsked + Strings{"GetKnicConfigs()"};

/// What is stored beside the interface's name, and without its UUID, which is always empty.
using Settings = std::array<std::string, 9>;
const Settings kDefaults = {"v4 224.2.3.4", "v6 FF19:0:0:0:0:2:3:4",
                            "v4 224.1.2.3", "v6 FF19:0:0:0:0:1:2:3",
                            "23451",        "12345",
                            "12321",        "5",
                            "[dovra]"};
const Settings kExisting = {
    "v4 224.0.0.1", "v6 ff02::1", "v4 224.0.0.2", "v6 ff02::2", "1", "2", "3", "4", "[witness]"};

Strings Configure(const Settings& settings) {
  std::string call = "ConfigureKnic(knic0, ";
  for (const auto& setting : settings) call += setting + ", ";
  return {call + ")"};
}

TEST(NetworkIpAddAndSet, EachParameterReplacesOneSetting) {
  const struct {
    const char* name;
    Input::Value value;
    std::size_t position;
    std::string stored;
  } rows[] = {
      {"agent-mc-addr", "224.7.7.7", 0, "v4 224.7.7.7"},
      {"agent-v6-mc-addr", "ff02::7", 1, "v6 ff02::7"},
      {"master-mc-addr", "224.7.7.7", 2, "v4 224.7.7.7"},
      {"master-v6-mc-addr", "ff02::7", 3, "v6 ff02::7"},
      {"agent-mc-port", -1, 4, "-1"},
      {"agent-mc-port", kWrap + 23451, 4, "2147483647"},
      {"master-mc-port", 70000, 5, "70000"},
      {"master-mc-port", -kWrap, 5, "-2147483648"},
      {"host-uc-port", 0, 6, "0"},
      {"host-uc-port", kWrap + 12321, 6, "2147483647"},
      {"multicast-ttl", 0, 7, "0"},
      {"multicast-ttl", kWrap + 1, 7, "2147483647"},
      {"traffic-type", Strings{"witness"}, 8, "[witness]"},
      {"traffic-type", Strings{"dovra"}, 8, "[dovra]"},
      {"traffic-type", Strings{"witness", "dovra", "witness"}, 8, "[dovra, witness]"},
      {"traffic-type", Strings{}, 8, "[]"},
  };
  for (const auto& [name, value, position, stored] : rows) {
    SCOPED_TRACE(name);
    Settings added = kDefaults, set = kExisting;
    added[position] = set[position] = stored;
    Check("network ip add", {}, With({{name, value}}), kAskedBoth + Configure(added), kTrue);
    Check("network ip set", InUse({Knic("knic0")}), With({{name, value}}), kRead + Configure(set),
          kTrue);
  }
}

TEST(NetworkIpAddAndSet, StartFromDefaultsOrFromTheEntry) {
  Check("network ip add", {}, With({}), kAskedBoth + Configure(kDefaults), kTrue);
  Check("network ip set", InUse({Knic("knic0")}, false), With({}),
        kAskedBoth + Strings{"GetKnicConfigs()"} + Configure(kExisting), kTrue);
  // The first entry of the name, letter for letter; else the last entry of all.
  Settings chosen = kExisting;
  chosen[4] = "9";
  Check("network ip set", InUse({Knic("KNIC0"), Knic("knic01"), Knic("knic0", 9), Knic("knic0")}),
        With({}), kRead + Configure(chosen), kTrue);
  Check("network ip set", InUse({Knic("knic8"), Knic("knic7", 9)}), With({}),
        kRead + Configure(chosen), kTrue);
}

TEST(NetworkIpAdd, Refuses) {
  const Outcome inUse = Failed(
      "This Hostkernel network interface is already in use. Can't add again. If you want to "
      "reconfigure, use 'set' command.");
  const Outcome unknownTraffic = Failed("Unknown traffic type");
  Check("network ip add", kTooOld, With({}), kOpen, Failed(kNoInfo2));
  Check("network ip add", InUse({}), With({}), kAsked, inUse);
  Check("network ip add", InUse({}, false), With({}), kAskedBoth, inUse);
  for (const Strings& types : {Strings{"dovra", "foo"}, Strings{"Witness"}, Strings{""}}) {
    Check("network ip add", {}, With({{"traffic-type", types}}), kAskedBoth, unknownTraffic);
  }
  Check("network ip add", {}, With({{"agent-mc-addr", "::1"}, {"traffic-type", Strings{"foo"}}}),
        kAskedBoth, Failed("\"::1\" is not an IPv4 address."));
  Check("network ip add", {}, With({{"master-v6-mc-addr", "224.0.0.1"}}), kAskedBoth,
        Failed("\"224.0.0.1\" is not an IPv6 address."));
}

TEST(NetworkIpSet, Refuses) {
  const Outcome notFound = Failed("This Hostkernel network interface not found.");
  Check("network ip set", kTooOld, With({}), kOpen, Failed(kNoInfo2));
  Check("network ip set", {}, With({}), kAskedBoth,
        Failed("This Hostkernel network interface is not in use. Can't "
               "set/reconfigure. If you want to add, use 'add' command."));
  Check("network ip set", InUse({}), With({}), kRead, notFound);
  Check("network ip set", kHoldsNull, With({}), kRead, notFound);
  // Even a group that is about to be replaced must suit its place.
  Check("network ip set", InUse({Swapped()}), With({{"agent-mc-addr", "224.7.7.7"}}), kRead,
        Failed("\"ff02::1\" is not an IPv4 address."));
}

TEST(NetworkList, ShowsEveryInterface) {
  const auto row = [](const std::string& name, const std::string& uuid, const Strings& groups,
                      const std::string& traffic) {
    return "{KNic Name: " + name + ", IP Protocol: IP, Interface UUID: " + uuid +
           ", Agent Group Multicast Address: " + groups[0] +
           ", Agent Group IPv6 Multicast Address: " + groups[1] +
           ", Agent Group Multicast Port: 1, Master Group Multicast Address: " + groups[2] +
           ", Master Group IPv6 Multicast Address: " + groups[3] +
           ", Master Group Multicast Port: 2, Host Unicast Channel Bound Port: 3, Multicast TTL: "
           "4, Traffic Type: " +
           traffic + "}";
  };
  const Strings groups = {"224.0.0.1", "ff02::1", "224.0.0.2", "ff02::2"};
  const Strings swapped = {"ff02::1", "224.0.0.1", "ff02::2", "224.0.0.2"};
  DovraKnicConfig2 idle = Knic("knic2");
  idle.carriesWitness = false;
  const std::string shown = "[" + row("knic1", "uuid-knic1", groups, "witness") + ", " +
                            row("knic0", "", swapped, "dovra, witness") + ", " +
                            row("knic2", "uuid-knic2", groups, "") + "]";
  const Strings read = kOpen + Strings{"GetKnicConfigs()"};
  Check("network list", InUse({Knic("knic1"), Swapped(), idle}), {}, read, {shown, {}});
  Check("network list", {}, {}, read, {"[]", {}});
  Check("network list", kHoldsNull, {}, read, {"[]", {}});
  Check("network list", kTooOld, {}, kOpen, Failed(kNoInfo2, "[]"));
}

void CheckRemoval(const std::string& command) {
  const auto removed = [](const std::string& force) {
    return kOpen + Strings{"RemoveKnic(knic0, " + force + ", dovra)",
                           "RemoveKnic(knic0, " + force + ", witness)"};
  };
  Check(command, kTooOld, With({}), removed("false"), kTrue);
  Check(command, {}, With({{"force", true}}), removed("true"), kTrue);
}

TEST(NetworkTearDown, AsksAnOldLibraryToo) {
  CheckRemoval("network remove");
  CheckRemoval("network ip remove");
  Check("network clear", kTooOld, {}, kOpen + Strings{"ClearNetworkConfig()"}, kTrue);
  Check("network restore", kTooOld, {}, kOpen + Strings{"RestoreNetworkConfig()"}, kTrue);
}

}  // namespace
