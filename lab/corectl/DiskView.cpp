#include "corectl/DiskView.h"

#include <set>

#include "corectl/Splits.h"
#include "platform/corectl/DovraUtil.h"

namespace Lab {

DiskView ReadDiskView(Store& store, const HostRow& host) {
  DiskView view;
  view.host = host.id;
  std::set<std::int64_t> hosts = {host.id};
  if (const auto member = FindRunningMember(store, host)) {
    view.isMember = true;
    for (const Member& peer : SideOf(store, host, member->cluster).members) {
      hosts.insert(peer.host.id);
    }
  }
  for (const std::int64_t id : hosts) {
    for (DiskRow& disk : store.ListClaimedDisks(id)) {
      view.disks.emplace(CoreCtl::Dovra::DovraUtil::StringToDovraUuid(disk.uuid), std::move(disk));
    }
  }
  return view;
}

}  // namespace Lab
