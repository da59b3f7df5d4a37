#include <gtest/gtest.h>

#include "RecordingLibrary.h"
#include "frame/Text.h"

using namespace Testing;
using HostCtl::Dovra::DovraKnicConfig2;
using OrvaneCli::DovraNamespace::ParseAddress;
using Handle = std::shared_ptr<DovraKnicConfig2>;

namespace {

/// Addresses of the agent group and the master group, the IPv4 address of each before the IPv6 one,
/// and the other way round.
const Strings kGroups = {"224.0.0.1", "ff02::1", "224.0.0.2", "ff02::2"};
const Strings kSwapped = {"ff02::1", "224.0.0.1", "ff02::2", "224.0.0.2"};

/// Returns an interface without a default setting.
Handle Knic(const std::string& name, int port = 1, const Strings& groups = kGroups) {
  const auto group = [&](std::size_t place) { return *ParseAddress(groups[place]); };
  return std::make_shared<DovraKnicConfig2>(name, group(0), group(1), group(2), group(3), port, 2,
                                            3, 4, false, true, "uuid-" + name);
}

SetUp InUse(const std::vector<Handle>& knics, const char* traffic = "dovra") {
  return [=](RecordingLibrary& library) {
    library.trafficInUse = {traffic};
    library.knics = knics;
  };
}
const SetUp kTooOld = [](RecordingLibrary& library) { library.hasInfo2 = false; };
const std::string kNoInfo2 = "Could not get DovraInfo2. Plugin version mismatch?";

const std::string kAdd = "network ip add --interface-name knic0 ";
const std::string kSet = "network ip set --interface-name knic0 ";

const Strings kAsked = kOpen + "IsKnicInUse(knic0, dovra)";
const Strings kAskedBoth = kAsked + "IsKnicInUse(knic0, witness)";
const Strings kRead = kAsked + "GetKnicConfigs()";

// The settings that are stored after the interface's name, without its UUID, which is empty.
const Strings kDefaults = {"v4 224.2.3.4", "v6 FF19:0:0:0:0:2:3:4",
                           "v4 224.1.2.3", "v6 FF19:0:0:0:0:1:2:3",
                           "23451",        "12345",
                           "12321",        "5",
                           "[dovra]"};
const Strings kExisting = {
    "v4 224.0.0.1", "v6 ff02::1", "v4 224.0.0.2", "v6 ff02::2", "1", "2", "3", "4", "[witness]"};

/// The call that stores these settings, with the one at `position` replaced.
std::string Configure(Strings settings, std::size_t position, const std::string& setting) {
  settings[position] = setting;
  std::string call = "ConfigureKnic(knic0, ";
  for (const auto& one : settings) call += one + ", ";
  return call + ")";
}

TEST(NetworkIpAddAndSet, EachParameterReplacesOneSetting) {
  const std::tuple<const char*, std::size_t, std::string> rows[] = {
      {"--agent-mc-addr 224.7.7.7", 0, "v4 224.7.7.7"},
      {"--agent-v6-mc-addr ff02::7", 1, "v6 ff02::7"},
      {"--master-mc-addr 224.7.7.7", 2, "v4 224.7.7.7"},
      {"--master-v6-mc-addr ff02::7", 3, "v6 ff02::7"},
      // Cut to 32 bits, the large ones would be the defaults.
      {"--agent-mc-port -1", 4, "-1"},
      {"--agent-mc-port 4294990747", 4, "2147483647"},
      {"--master-mc-port 70000", 5, "70000"},
      {"--host-uc-port 4294979617", 6, "2147483647"},
      {"--multicast-ttl 4294967301", 7, "2147483647"},
      {"--traffic-type witness", 8, "[witness]"},
      {"--traffic-type dovra", 8, "[dovra]"},
      {"--traffic-type witness --traffic-type dovra", 8, "[dovra, witness]"},
  };
  for (const auto& [option, position, stored] : rows) {
    Check(kAdd + option, {}, kAskedBoth + Configure(kDefaults, position, stored), "true");
    Check(kSet + option, InUse({Knic("knic0")}), kRead + Configure(kExisting, position, stored),
          "true");
  }
}

TEST(NetworkIpSet, StartsFromTheEntryOfTheNameOrTheLastOne) {
  Check(kSet, InUse({Knic("knic0")}, "witness"),
        kAskedBoth + "GetKnicConfigs()" + Configure(kExisting, 4, "1"), "true");
  const Strings chosen = kRead + Configure(kExisting, 4, "9");
  Check(kSet, InUse({Knic("KNIC0"), Knic("knic01"), Knic("knic0", 9), Knic("knic0")}), chosen,
        "true");
  Check(kSet, InUse({Knic("knic8"), Knic("knic7", 9)}), chosen, "true");
  Check(kSet, InUse({nullptr, Knic("knic0", 9), nullptr}), chosen, "true");

  const Outcome notFound = Failed("This Hostkernel network interface not found.");
  Check(kSet, {}, kAskedBoth,
        Failed("This Hostkernel network interface is not in use. Can't set/reconfigure. If you "
               "want to add, use 'add' command."));
  Check(kSet, InUse({}), kRead, notFound);
  Check(kSet, InUse({Knic("knic1"), nullptr}), kRead, notFound);
  // Even a group that is about to be replaced must suit its place.
  Check(kSet + "--agent-mc-addr 224.7.7.7", InUse({Knic("knic0", 1, kSwapped)}), kRead,
        Failed("\"ff02::1\" is not an IPv4 address."));
}

TEST(NetworkIpAdd, Refuses) {
  const Outcome inUse = Failed(
      "This Hostkernel network interface is already in use. Can't add again. If you want to "
      "reconfigure, use 'set' command.");
  Check(kAdd, kTooOld, kOpen, Failed(kNoInfo2));
  Check(kAdd, InUse({}), kAsked, inUse);
  Check(kAdd, InUse({}, "witness"), kAskedBoth, inUse);
  for (const std::string types : {"-T dovra -T foo", "-T Witness", "-T ''"}) {
    Check(kAdd + types, {}, kAskedBoth, Failed("Unknown traffic type"));
  }
  Check(kAdd + "--agent-mc-addr ::1 -T foo", {}, kAskedBoth,
        Failed("\"::1\" is not an IPv4 address."));
}

TEST(NetworkList, ShowsEveryInterface) {
  const auto row = [](const std::string& name, const Strings& groups, const std::string& traffic) {
    return "KNic Name: " + name + ", IP Protocol: IP, Interface UUID: uuid-" + name +
           ", Agent Group Multicast Address: " + groups[0] +
           ", Agent Group IPv6 Multicast Address: " + groups[1] +
           ", Agent Group Multicast Port: 1, Master Group Multicast Address: " + groups[2] +
           ", Master Group IPv6 Multicast Address: " + groups[3] +
           ", Master Group Multicast Port: 2, Host Unicast Channel Bound Port: 3, Multicast TTL: "
           "4, Traffic Type: " +
           traffic;
  };
  const Handle busy = Knic("knic0", 1, kSwapped), idle = Knic("knic2");
  busy->carriesDovra = true;
  idle->carriesWitness = false;
  Check("network list", InUse({nullptr, Knic("knic1"), busy, idle, nullptr}),
        kOpen + "GetKnicConfigs()",
        {row("knic1", kGroups, "witness") + ", " + row("knic0", kSwapped, "dovra, witness") + ", " +
         row("knic2", kGroups, "")});
  Check("network list", kTooOld, kOpen, Failed(kNoInfo2, ""));
}

}  // namespace
