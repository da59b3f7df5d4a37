// The lab's rules, asked as the plug-in asks: through the control library.

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <functional>

#include "baselibs/HostError.h"
#include "corectl/rules/Clusters.h"
#include "corectl/rules/Disks.h"
#include "corectl/rules/Hosts.h"
#include "corectl/session/Session.h"
#include "platform/corectl/DovraUtil.h"
#include "platform/hostctl/DovraPluginFactory.h"
#include "store/Uuids.h"

namespace Lab {

namespace {

namespace fs = std::filesystem;
using CoreCtl::Dovra::DovraUtil;
using HostCtl::Dovra::DovraDatastore;
using HostCtl::Dovra::DovraDiskInfo;
using HostCtl::Dovra::DovraInfo;
using HostCtl::Dovra::DovraIpAddress;
using HostCtl::Lib::Dovra::DovraCtlException;
using HostCtl::Network::Ipv4Address;
using HostCtl::Network::Ipv6Address;
using testing::ElementsAre;
using testing::HasSubstr;
using Strings = std::vector<std::string>;

constexpr const char* kNode = "10000000-0000-0000-0000-000000000002";
const std::string kSsd = "mpx.xhba1:C0:T0:L0";
const std::string kOne = "mpx.xhba2:C0:T0:L0";
const std::string kTwo = "mpx.xhba2:C0:T1:L0";

/// A lab in a new directory, and the control library of its first host.
class Rules : public testing::Test {
 protected:
  Rules() {
    std::string path = fs::temp_directory_path() / "rules-XXXXXX";
    if (mkdtemp(path.data()) == nullptr) throw std::runtime_error("no temporary directory");
    directory_ = path;
    fs::create_directories(directory_ / "files");
    Select({directory_ / "lab", "host1", directory_ / "files"});
    plugin_ = HostCtl::DovraPluginFactory::GetDovraPlugin();
    info_ = plugin_->GetDovraInfo();
  }
  ~Rules() override {
    Select({});
    fs::remove_all(directory_);
  }

  /// What the work is refused with; empty if it is not.
  static std::string Refusal(const std::function<void()>& work) {
    try {
      work();
      return {};
    } catch (const DovraCtlException& refusal) {
      return refusal.GetMessage();
    }
  }

  template <class Work>
  void Change(Work&& work) {
    Session::Current().Change(std::forward<Work>(work));
  }

  /// Empties the store through a second connection, as another process might.
  void ClearBehindItsBack() {
    Store other(directory_ / "lab", {});
    Store::Transaction transaction(other, Store::Transaction::Kind::kWrite);
    other.Clear();
    transaction.Commit();
  }

  void AddAgent(bool isWitness, const DovraIpAddress& address, const std::string& node = kNode) {
    info_->AddUnicastAgent(isWitness ? kNilUuid : node, isWitness, true, address, 1, false, "", "");
  }

  /// The host's disks as a listing shows them: device, then what it is besides healthy.
  Strings ListDisks() {
    DovraInfo::DiskLuns luns;
    DovraInfo::GetDovraDisks(luns);
    return ListDisks(luns);
  }
  Strings ListDisks(const DovraInfo::DiskLuns& luns) {
    Strings shown;
    std::vector<HostCtl::Dovra::Uuid> uuids;
    info_->GetDiskUuids(uuids);
    for (const auto& uuid : uuids) {
      DovraDiskInfo disk;
      info_->GetDiskInfo(uuid, luns, disk);
      shown.push_back(disk.deviceName + (disk.isMounted ? "" : " unmounted") +
                      (disk.checksumOk ? "" : " broken") + (disk.usedByThisHost ? "" : " away") +
                      (disk.inTavdir ? " known" : ""));
    }
    std::ranges::sort(shown);
    return shown;
  }

  fs::path directory_;
  std::unique_ptr<HostCtl::DovraPlugin> plugin_;
  std::unique_ptr<DovraInfo> info_;
};

DovraIpAddress Address(const std::string& text) {
  if (Ipv4Address::IsValidAddress(text)) return DovraIpAddress(Ipv4Address(text));
  return DovraIpAddress(Ipv6Address(text));
}

TEST_F(Rules, AgentsAreAtAddressesOfOneHost) {
  for (const char* const text :
       {"0.0.0.0", "255.255.255.255", "224.0.0.1", "239.255.255.255", "::", "ff02::1", "FF19::1",
        "::ffff:224.0.0.1", "::ffff:255.255.255.255"}) {
    EXPECT_THAT(Refusal([&] { AddAgent(false, Address(text)); }), HasSubstr("not one of a single"))
        << text;
  }
  AddAgent(false, Address("1.2.3.3"));
  AddAgent(true, Address("1.2.3.4"));
  EXPECT_THAT(Refusal([&] { AddAgent(false, Address("::FFFF:1.2.3.4")); }),
              HasSubstr("a unicast agent"));
  EXPECT_EQ(Refusal([&] { AddAgent(true, Address("1.2.3.5")); }),
            "There is a unicast witness already: 1.2.3.4.");
  EXPECT_TRUE(info_->RemoveUnicastAgent(kNilUuid, Address("::ffff:102:304"), 1));
}

TEST_F(Rules, AgentsAreThoseOfTheLargestCluster) {
  const auto add = [&](std::size_t number) {
    AddAgent(false, Address("fe80::" + std::to_string(number)), NewUuid());
  };
  for (std::size_t number = 1; number <= 64; ++number) add(number);
  EXPECT_EQ(Refusal([&] { add(65); }), "There can be at most 64 unicast agents.");
}

TEST_F(Rules, AnInterfaceStaysWhileItCarriesAnything) {
  const DovraIpAddress v4 = Address("224.0.0.1"), v6 = Address("ff02::1");
  for (const auto& [first, last] : {std::pair("dovra", "witness"), {"witness", "dovra"}}) {
    dynamic_cast<HostCtl::Dovra::DovraInfo2&>(*info_).ConfigureKnic(
        {"knic0", v4, v6, v4, v6, 1, 2, 3, 4, true, true, ""});
    EXPECT_THAT(Refusal([&] { info_->IsKnicInUse("knic0", "none"); }), HasSubstr("traffic type"));
    info_->RemoveKnic("knic0", false, first);
    EXPECT_TRUE(info_->IsKnicInUse("knic0", last)) << last;
    info_->RemoveKnic("knic0", false, last);
    EXPECT_THAT(Refusal([&] { info_->RemoveKnic("knic0", false, "dovra"); }),
                HasSubstr("is not in the Dovra network"));
  }
}

TEST_F(Rules, NamesAreCountedInCharacters) {
  info_->CreateCluster(kNode, true, false);
  const auto add = [&](const std::string& name) {
    return Refusal([&] { info_->AddDatastore({NewUuid(), name, false}); });
  };
  std::string characters;
  for (int i = 0; i < 32; ++i) characters += "e\u00e9\u0e01\U0001f4be";
  EXPECT_EQ(add(characters), "");
  for (const std::string& name : {std::string(), characters + "x", std::string(129, '\x80'),
                                  std::string(129, '\xff'), std::string(129, '\xe2')}) {
    EXPECT_THAT(add(name), HasSubstr("1 to 128 characters")) << name;
  }
}

TEST_F(Rules, DisksTakeTheStateOfTheirGroup) {
  info_->AddDisks(kSsd, {kOne});
  info_->UnmountDiskGroup(kSsd);
  info_->AddDisks(kSsd, {kTwo});
  info_->SetAutoClaimMode(true);
  Change([](Store& store, const HostRow& host) {
    SetCapacityTag(store, host, "mpx.xhba1:C0:T1:L0", true);
    Fail(store, host, "mpx.xhba2:C0:T2:L0");  // is passed over
    PlugIn(store, host, "new", false);
    for (const DiskRow& disk : store.List<DiskRow>(host.id))
      EXPECT_FALSE(disk.mounted) << disk.device;
  });
}

TEST_F(Rules, TheLibraryTrustsNoCaller) {
  info_->CreateCluster(kNode, true, false);
  const auto cluster = DovraUtil::StringToDovraUuid(kNode);
  const Strings twice = {kOne, kOne};
  const std::pair<std::function<void()>, const char*> cases[] = {
      {[&] { info_->SetResyncThrottle(513); }, "between 0 and 512"},
      {[&] { info_->SetPolicyDefault("none", "iopsLimit=1"); }, "none"},
      {[&] { info_->AddDisks(kSsd, twice); }, "given twice"},
      {[&] { info_->AddDisks(kSsd, {kSsd}); }, "given twice"},
      {[&] { info_->RemoveDisk(kSsd, "none"); }, "none"},
      {[&] { info_->JoinCluster(cluster, false, "", false, false); }, "in cluster"},
      {[&] { info_->CreateCluster(kNode, true, false); }, "exists already"},
      {[&] { info_->SetPreferredFaultDomain("a"); }, "not a witness"},
      {[&] { AddAgent(false, Address("10.0.0.1"), kNilUuid); }, "cannot be the nil UUID"},
  };
  for (const auto& [work, reason] : cases) EXPECT_THAT(Refusal(work), HasSubstr(reason));
}

TEST_F(Rules, ALostDiskIsOutOfUseUntilItIsBack) {
  info_->CreateCluster(kNode, true, false);
  info_->AddDisks(kSsd, {kOne, kTwo});
  const Strings healthy = ListDisks();
  const auto lose = [&](auto&& how, const std::string& device) {
    Change([&](Store& store, const HostRow& host) { how(store, host, device); });
  };
  const auto mount = [&] { return Refusal([&] { info_->MountDisk(kOne); }); };
  const auto replace = [&] { return Refusal([&] { lose(Replace, kOne); }); };
  const std::string failed = "Disk \"" + kOne + "\" has failed.";

  lose(Unplug, kOne);
  EXPECT_THAT(ListDisks(),
              ElementsAre("Unknown unmounted away known", kSsd + " known", kTwo + " known"));
  lose(Unplug, "mpx.xhba2:C0:T3:L0");  // an empty one, which nobody misses
  Change([](Store& store, const HostRow& host) {
    EXPECT_EQ(store.CountDisks(host.id).ok, 4);
    EXPECT_EQ(store.CountDisks(host.id).failed, 1);
  });
  EXPECT_EQ(mount(), "Host host1 has no disk \"" + kOne + "\": it is unplugged.");
  lose(Replug, kOne);
  EXPECT_THAT(Refusal([&] { lose(Replug, kOne); }), HasSubstr("has no unplugged disk"));
  EXPECT_THAT(Refusal([&] { lose(Replace, "none"); }), HasSubstr("has no disk"));
  EXPECT_EQ(ListDisks(), healthy);
  lose(Unplug, kSsd);
  EXPECT_THAT(ListDisks(), ElementsAre("Unknown unmounted away known", kOne + " unmounted",
                                       kTwo + " unmounted"));
  EXPECT_THAT(mount(), HasSubstr("is not mounted; mount it by its"));
  lose(Replug, kSsd);
  EXPECT_EQ(ListDisks(), healthy);

  lose(Fail, kOne);
  EXPECT_EQ(Refusal([&] { lose(Fail, kOne); }), "Disk \"" + kOne + "\" has failed already.");
  lose(Unplug, kOne);
  lose(Replug, kOne);
  EXPECT_EQ(mount(), failed);
  info_->UnmountDiskGroup(kSsd);
  info_->MountDiskGroup(kSsd);
  EXPECT_THAT(ListDisks(),
              ElementsAre(kSsd + " known", kOne + " unmounted broken", kTwo + " known"));
  EXPECT_THAT(replace(), HasSubstr("remove it from there first"));
  info_->RemoveDisk(kOne, "");
  EXPECT_EQ(Refusal([&] { info_->AddDisks(kSsd, {kOne}); }), failed);
  EXPECT_EQ(replace(), "");
  EXPECT_EQ(replace(), "Disk \"" + kOne + "\" has not failed.");
  lose(Fail, kSsd);
  EXPECT_EQ(Refusal([&] { info_->MountDiskGroup(kSsd); }), "Disk \"" + kSsd + "\" has failed.");

  // Auto claim goes on beside what is lost.
  info_->SetAutoClaimMode(true);
  lose([](auto&... arguments) { PlugIn(arguments..., false); }, "new");
  Change([](Store& store, const HostRow& host) {
    EXPECT_NE(store.Find<DiskRow>(host.id, "new")->groupName, kSsd);
    EXPECT_TRUE(store.Find<DiskRow>(host.id, "new")->mounted);
  });
}

TEST_F(Rules, WhatIsReadIsOfOneMoment) {
  EXPECT_FALSE(info_->GetClusterConfig().enabled);
  info_->CreateCluster(kNode, true, false);
  info_->AddDisks(kSsd, {kOne});
  DovraInfo::DiskLuns luns;
  DovraInfo::GetDovraDisks(luns);
  EXPECT_TRUE(info_->GetClusterConfig().enabled);
  ClearBehindItsBack();
  EXPECT_FALSE(info_->IsLocalNodeWitness());
  EXPECT_EQ(info_->GetConfigGeneration().generation, 1U);
  std::vector<HostCtl::Dovra::DovraMemberInfo> members(1);  // which go
  std::string text[7];
  std::uint64_t revision = 0;
  DovraUtil::GetInfoFromTavdir(members, text[0], text[1], text[2], revision, text[3], text[4],
                               text[5], text[6]);
  EXPECT_EQ(members.size(), 1U);
  EXPECT_THAT(ListDisks(luns), ElementsAre(kSsd + " known", kOne + " known"));
}

TEST_F(Rules, WithoutTheQuorumOnlyTheHostsOwnGoesOn) {
  info_->CreateCluster(kNode, true, false);
  const std::string datastore = NewUuid();
  info_->AddDatastore({datastore, "one", false});
  Change([](Store& store, const HostRow&) {
    AddHost(store, "host2", Selected().hostFiles);
    MemberRow member;
    member.cluster = kNode;
    AddMember(store, *store.FindHost("host2"), member);
    EXPECT_THAT(Refusal([&] { SplitNetwork(store, {"host2", "host1"}); }), HasSubstr("not all"));
    SplitNetwork(store, {"host2"});
  });
  const std::vector<std::function<void()>> shared = {
      [&] { info_->AddDatastore(DovraDatastore(NewUuid(), "two", false)); },
      [&] { info_->SetDatastoreName("", "three"); },
      [&] { info_->RemoveDatastore(datastore, false); },
      [&] { info_->ClearDatastores(); },
      [&] { info_->SetFaultDomain("a"); },
  };
  for (const auto& change : shared) EXPECT_THAT(Refusal(change), HasSubstr("1 of 2 votes"));
  info_->SetFaultDomain("");  // as it is
  info_->SetDatastoreName(datastore, "one");
  info_->SetPolicyDefault("vdisk", "stripeWidth=1");
  info_->ClearPolicyDefaults();
  info_->SetAutoClaimMode(true);
  info_->SetResyncThrottle(512);
  AddAgent(false, Address("10.0.0.2"));
  info_->AddDisks(kSsd, {kOne});
  EXPECT_THAT(ListDisks(), testing::SizeIs(2));
  ChangeLab(HealNetwork);
  Change([](Store& store, const HostRow&) {
    EXPECT_EQ(store.Find<ClusterRow>(kNode)->revision, 4) << "founded, joined, split and healed";
    EXPECT_EQ(store.Find<ClusterRow>(kNode)->generation, 2) << "founded, and a datastore";
  });
  for (const auto& change : shared) EXPECT_EQ(Refusal(change), "");
}

TEST_F(Rules, AJoinLeavesTheQuorumWhereItIs) {
  Change([](Store& store, const HostRow&) {
    store.Save(ClusterRow{.uuid = kNode});
    for (const char* const name : {"a1", "a2", "b1"}) {
      AddHost(store, name, Selected().hostFiles);
      HostRow host = *store.FindHost(name);
      host.faultDomain = host.name.substr(0, 1);
      store.Save(host);
      AddMember(store, host, {.cluster = kNode});
    }
    SplitNetwork(store, {"b1"});
  });
  const auto join = [&](const char* site) {
    return Refusal(
        [&] { info_->JoinCluster(DovraUtil::StringToDovraUuid(kNode), true, site, false, false); });
  };
  EXPECT_THAT(join("b"), HasSubstr("would take the quorum from a partition with 2 of 3 votes"));
  EXPECT_EQ(join("a"), "");
  Change([](Store& store, const HostRow& host) { SplitNetwork(store, {host.name}); });
  info_->ClearDatastores();  // nothing to clear needs no quorum
  ChangeLab(HealNetwork);
  ChangeLab([](Store& store) {
    const auto healed = store.Find<ClusterRow>(kNode)->revision;
    HealNetwork(store);
    EXPECT_EQ(store.Find<ClusterRow>(kNode)->revision, healed);
  });
  Change(Reboot);
  EXPECT_THAT(Refusal([&] { info_->SetFaultDomain("c"); }), HasSubstr("0 of 3 votes"));
  Change(Stop);  // as another process may, between two operations
  EXPECT_THROW(info_->RestoreClusterConfig(true), BaseLibs::HostError);
}

TEST(Schema, HasANewVersionAfterAChange) {
  EXPECT_EQ(kSchemaVersion, 4);
  EXPECT_EQ(UuidOfName(CreateTables()), "6bb1b3c7-9ff5-59e8-9c80-a2df66c22285")
      << "If this change is meant, raise the version.";
}

}  // namespace

}  // namespace Lab
