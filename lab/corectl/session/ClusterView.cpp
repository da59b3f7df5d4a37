#include "corectl/session/ClusterView.h"

#include <algorithm>

#include "corectl/rules/Refuse.h"

namespace Lab {

const MemberRow& ClusterView::RequireMember() const {
  if (!member) Refuse(kNoMember);
  return *member;
}

ClusterView ReadClusterView(Store& store, const HostRow& host) {
  ClusterView view;
  view.host = host;
  // Peers that are told of each other one by one are reached that way.
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

}  // namespace Lab
