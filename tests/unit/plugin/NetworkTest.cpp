#include <array>

#include "Cases.h"

using namespace Testing;
using HostCtl::Dovra::DovraIpAddress;
using HostCtl::Dovra::DovraKnicConfig2;
using HostCtl::Network::Ipv4Address;
using HostCtl::Network::Ipv6Address;

namespace {

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
SetUp BetweenNulls(const std::vector<DovraKnicConfig2>& knics) {
  return [=](RecordingLibrary& library) {
    InUse(knics)(library);
    library.hasNulls = true;
  };
}
const SetUp kTooOld = [](RecordingLibrary& library) { library.hasInfo2 = false; };
const std::string kNoInfo2 = "Could not get DovraInfo2. Plugin version mismatch?";

const std::string kAdd = "network ip add --interface-name knic0 ";
const std::string kSet = "network ip set --interface-name knic0 ";

const Strings kAsked = kOpen + "IsKnicInUse(knic0, dovra)";
const Strings kAskedBoth = kAsked + "IsKnicInUse(knic0, witness)";
const Strings kRead = kAsked + "GetKnicConfigs()";

/// What is stored beside the interface's name, and without its UUID, which is always empty.
using Settings = std::array<std::string, 9>;
const Settings kDefaults = {"v4 224.2.3.4", "v6 FF19:0:0:0:0:2:3:4",
                            "v4 224.1.2.3", "v6 FF19:0:0:0:0:1:2:3",
                            "23451",        "12345",
                            "12321",        "5",
                            "[dovra]"};
const Settings kExisting = {
    "v4 224.0.0.1", "v6 ff02::1", "v4 224.0.0.2", "v6 ff02::2", "1", "2", "3", "4", "[witness]"};

std::string Configure(const Settings& settings) {
  std::string call = "ConfigureKnic(knic0, ";
  for (const auto& setting : settings) call += setting + ", ";
  return call + ")";
}

TEST(NetworkIpAddAndSet, EachParameterReplacesOneSetting) {
  const std::tuple<const char*, std::size_t, std::string> rows[] = {
      {"--agent-mc-addr 224.7.7.7", 0, "v4 224.7.7.7"},
      {"--agent-v6-mc-addr ff02::7", 1, "v6 ff02::7"},
      {"--master-mc-addr 224.7.7.7", 2, "v4 224.7.7.7"},
      {"--master-v6-mc-addr ff02::7", 3, "v6 ff02::7"},
      // Cut to 32 bits, the large ones would be as they are by default.
      {"--agent-mc-port -1", 4, "-1"},
      {"--agent-mc-port 4294990747", 4, "2147483647"},
      {"--master-mc-port 70000", 5, "70000"},
      {"--host-uc-port 4294979617", 6, "2147483647"},
      {"--multicast-ttl 4294967301", 7, "2147483647"},
      {"--traffic-type witness", 8, "[witness]"},
      {"--traffic-type dovra", 8, "[dovra]"},
  };
  for (const auto& [option, position, stored] : rows) {
    Settings added = kDefaults, set = kExisting;
    added[position] = set[position] = stored;
    Check(kAdd + option, kAskedBoth + Configure(added), kTrue);
    Check(kSet + option, InUse({Knic("knic0")}), kRead + Configure(set), kTrue);
  }
}

TEST(NetworkIpAddAndSet, StartFromDefaultsOrFromTheEntry) {
  Check(kSet, InUse({Knic("knic0")}, false), kAskedBoth + "GetKnicConfigs()" + Configure(kExisting),
        kTrue);
  // The first entry of the name, letter for letter; else the last entry of all.
  Settings chosen = kExisting;
  chosen[4] = "9";
  Check(kSet, InUse({Knic("KNIC0"), Knic("knic01"), Knic("knic0", 9), Knic("knic0")}),
        kRead + Configure(chosen), kTrue);
  Check(kSet, InUse({Knic("knic8"), Knic("knic7", 9)}), kRead + Configure(chosen), kTrue);
  Check(kSet, BetweenNulls({Knic("knic0", 9)}), kRead + Configure(chosen), kTrue);
}

TEST(NetworkIpAdd, Refuses) {
  const Outcome inUse = Failed(
      "This Hostkernel network interface is already in use. Can't add again. If you want to "
      "reconfigure, use 'set' command.");
  Check(kAdd, kTooOld, kOpen, Failed(kNoInfo2));
  Check(kAdd, InUse({}), kAsked, inUse);
  Check(kAdd, InUse({}, false), kAskedBoth, inUse);
  for (const std::string types : {"-T dovra -T foo", "-T Witness", "-T ''"}) {
    Check(kAdd + types, kAskedBoth, Failed("Unknown traffic type"));
  }
  Check(kAdd + "--agent-mc-addr ::1 -T foo", kAskedBoth, Failed("\"::1\" is not an IPv4 address."));
  Check(kAdd + "--master-v6-mc-addr 224.0.0.1", kAskedBoth,
        Failed("\"224.0.0.1\" is not an IPv6 address."));
}

TEST(NetworkIpSet, Refuses) {
  const Outcome notFound = Failed("This Hostkernel network interface not found.");
  Check(kSet, kAskedBoth,
        Failed("This Hostkernel network interface is not in use. Can't "
               "set/reconfigure. If you want to add, use 'add' command."));
  Check(kSet, InUse({}), kRead, notFound);
  Check(kSet, BetweenNulls({Knic("knic1")}), kRead, notFound);
  // Even a group that is about to be replaced must suit its place.
  Check(kSet + "--agent-mc-addr 224.7.7.7", InUse({Swapped()}), kRead,
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
  const Strings read = kOpen + "GetKnicConfigs()";
  Check("network list", BetweenNulls({Knic("knic1"), Swapped(), idle}), read, {shown, {}});
  Check("network list", kTooOld, kOpen, Failed(kNoInfo2, "[]"));
}

TEST(NetworkTearDown, AsksAnOldLibraryToo) {
  for (const std::string command : {"network remove", "network ip remove"}) {
    Check(command + " --interface-name knic0", kTooOld,
          kOpen + "RemoveKnic(knic0, false, dovra)" + "RemoveKnic(knic0, false, witness)", kTrue);
    Check(command + " --interface-name knic0 --force",
          kOpen + "RemoveKnic(knic0, true, dovra)" + "RemoveKnic(knic0, true, witness)", kTrue);
  }
}

}  // namespace
