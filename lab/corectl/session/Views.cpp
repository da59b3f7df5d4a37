#include "corectl/session/Views.h"

#include <algorithm>

#include "corectl/rules/Refuse.h"
#include "platform/corectl/DovraUtil.h"

namespace Lab {

using CoreCtl::Dovra::DovraUtil;

const MemberRow& ClusterView::RequireMember() const {
  if (!member) Refuse(kNoMember);
  return *member;
}

ClusterView ReadClusterView(Store& store, const HostRow& host) {
  ClusterView view;
  view.host = host;
  view.usesUnicast = store.Has<AgentRow>(host.id);
  auto members = ListMembers(store, host);
  const auto own =
      std::ranges::find(members, host.id, [](const Member& member) { return member.row.host; });
  if (own == members.end() || !own->row.running) return view;
  view.member = own->row;
  view.cluster = RequireCluster(store, own->row.cluster);
  view.members = std::move(members);
  return view;
}

DiskView::Disk::Disk(DiskRow disk, bool attached)
    : uuid(DovraUtil::StringToDovraUuid(disk.uuid)), row(std::move(disk)), isAttached(attached) {}

const DiskView::Disk* DiskView::Find(const HostCtl::Dovra::Uuid& uuid) const {
  const auto found = std::ranges::lower_bound(disks, uuid, {}, &Disk::uuid);
  return found == disks.end() || found->uuid != uuid ? nullptr : &*found;
}

DiskView ReadDiskView(Store& store, const HostRow& host) {
  DiskView view;
  std::vector<std::int64_t> hosts = {host.id};
  if (const auto member = FindRunningMember(store, host)) {
    view.isMember = true;
    const auto members = ListMembers(store, member->cluster);
    for (const Member* const peer : PartitionOf(members, {*member, host}).members) {
      if (peer->host.id != host.id) hosts.push_back(peer->host.id);
    }
  }
  std::vector<DiskRow> rows;
  for (const std::int64_t id : hosts) {
    std::ranges::move(store.ListClaimedDisks(id), std::back_inserter(rows));
  }
  std::vector<DiskRow*> sorted;  // the rows themselves are large
  sorted.reserve(rows.size());
  for (DiskRow& row : rows) sorted.push_back(&row);
  std::ranges::sort(sorted, {}, &DiskRow::uuid);
  view.disks.reserve(sorted.size());
  for (DiskRow* const row : sorted) {
    const bool isAttached = row->host == host.id && !row->unplugged;
    view.disks.emplace_back(std::move(*row), isAttached);
  }
  return view;
}

}  // namespace Lab
