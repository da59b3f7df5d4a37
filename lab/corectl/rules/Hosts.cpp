#include "corectl/rules/Hosts.h"

#include "baselibs/Strings.h"
#include "corectl/rules/Clusters.h"
#include "corectl/rules/Refuse.h"
#include "hostroot/HostRoot.h"
#include "store/LabDirectory.h"
#include "store/Uuids.h"

namespace Lab {

namespace {

constexpr struct {
  const char* device;
  bool flash;
} kDisks[] = {
    {"mpx.xhba1:C0:T0:L0", true},  {"mpx.xhba1:C0:T1:L0", true},  {"mpx.xhba2:C0:T0:L0", false},
    {"mpx.xhba2:C0:T1:L0", false}, {"mpx.xhba2:C0:T2:L0", false}, {"mpx.xhba2:C0:T3:L0", false},
};

}  // namespace

std::string UnknownHostMessage(Store& store, const std::string& name) {
  const std::string names = BaseLibs::Join(store.List<HostRow>(), ", ", &HostRow::name);
  return "no host \"" + name + "\" in this lab; " +
         (names.empty() ? "it has none (add one: lab host add --name NAME)"
                        : "its hosts are: " + names);
}

HostRow RequireHost(Store& store, const std::string& name) {
  auto host = store.FindHost(name);
  if (!host) Refuse(UnknownHostMessage(store, name));
  return *std::move(host);
}

void ResetLab(Store& store, const std::filesystem::path& files) {
  for (const HostRow& host : store.List<HostRow>()) RequireOwn(RootOf(store.GetDirectory(), host));
  store.Clear();
  AddHost(store, kFirstHost, files);
}

void AddHost(Store& store, const std::string& name, const std::filesystem::path& files) {
  store.Save(HostRow{.name = name, .uuid = NewUuid()});
  const HostRow host = *store.FindHost(name);
  for (const auto& [device, flash] : kDisks) {
    store.Save(DiskRow{.host = host.id, .device = device, .flash = flash});
  }
  MakeRoot(store, host, files);
}

void RemoveHost(Store& store, const HostRow& host) {
  RequireOwn(RootOf(store.GetDirectory(), host));
  if (const auto member = store.Find<MemberRow>(host.id))
    RemoveMember(store, host, member->cluster);
  store.Remove<HostRow>(host.id);
}

void Reboot(Store& store, HostRow& host) {
  if (auto member = FindRunningMember(store, host)) {
    member->running = false;
    store.Save(*member);
    BumpMembership(store, member->cluster, host);
  }
  store.SetKnicsRunning(host.id, false);
  host.enteringMaintenance = false;
  store.Save(host);
}

void StartMaintenance(Store& store, HostRow& host) {
  RequireRunningMember(store, host);
  if (host.enteringMaintenance) Refuse("This host is entering maintenance mode already.");
  host.enteringMaintenance = true;
  store.Save(host);
}

void CancelMaintenance(Store& store, HostRow& host) {
  if (!host.enteringMaintenance) {
    Refuse("No maintenance mode operation is in progress on this host.");
  }
  host.enteringMaintenance = false;
  store.Save(host);
}

}  // namespace Lab
