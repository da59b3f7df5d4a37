#include "corectl/DiskView.h"

#include <algorithm>
#include <set>

#include "corectl/Splits.h"
#include "platform/corectl/DovraUtil.h"

namespace Lab {

using CoreCtl::Dovra::DovraUtil;

const DiskView::Disk* DiskView::Find(const HostCtl::Dovra::Uuid& uuid) const {
  const auto found = std::ranges::lower_bound(disks, uuid, {}, &Disk::uuid);
  return found == disks.end() || found->uuid != uuid ? nullptr : &*found;
}

DiskView ReadDiskView(Store& store, const HostRow& host) {
  DiskView view;
  std::set<std::int64_t> hosts = {host.id};
  if (const auto member = FindRunningMember(store, host)) {
    view.isMember = true;
    for (const Member& peer : SideOf(store, host, member->cluster).members) {
      hosts.insert(peer.host.id);
    }
  }
  for (DiskRow& disk : store.ListClaimedDisks()) {
    if (!hosts.contains(disk.host)) continue;
    const bool isSeen = disk.host == host.id && !disk.unplugged;
    view.disks.push_back({DovraUtil::StringToDovraUuid(disk.uuid), std::move(disk), isSeen});
  }
  return view;
}

}  // namespace Lab
