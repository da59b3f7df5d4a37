#include "corectl/session/DiskView.h"

#include <algorithm>
#include <set>

#include "corectl/rules/Partitions.h"
#include "platform/corectl/DovraUtil.h"

namespace Lab {

using CoreCtl::Dovra::DovraUtil;

DiskView::Disk::Disk(DiskRow disk, bool isThere)
    : uuid(DovraUtil::StringToDovraUuid(disk.uuid)), row(std::move(disk)), isAttached(isThere) {}

const DiskView::Disk* DiskView::Find(const HostCtl::Dovra::Uuid& uuid) const {
  const auto found = std::ranges::lower_bound(disks, uuid, {}, &Disk::uuid);
  return found == disks.end() || found->uuid != uuid ? nullptr : &*found;
}

DiskView ReadDiskView(Store& store, const HostRow& host) {
  DiskView view;
  std::set<std::int64_t> hosts = {host.id};
  if (const auto member = FindRunningMember(store, host)) {
    view.isMember = true;
    for (const Member& peer : PartitionOf(store, host, member->cluster).members) {
      hosts.insert(peer.host.id);
    }
  }
  auto rows = store.ListClaimedDisks();
  view.disks.reserve(rows.size());
  for (DiskRow& disk : rows) {
    if (!hosts.contains(disk.host)) continue;
    const bool isAttached = disk.host == host.id && !disk.unplugged;
    view.disks.emplace_back(std::move(disk), isAttached);
  }
  return view;
}

}  // namespace Lab
