#include "corectl/ClusterView.h"

#include "corectl/LabHost.h"

namespace Lab {

const MemberRow& ClusterView::RequireMember() const {
  if (!member) Refuse(kNoMember);
  return *member;
}

ClusterView ReadClusterView(Store& store, const HostRow& host) {
  ClusterView view;
  view.host = host;
  // Peers that are told of each other one by one are reached that way.
  view.usesUnicast = !store.ListAgents(host.id).empty();
  view.member = FindRunningMember(store, host);
  if (!view.member) return view;
  view.cluster = RequireCluster(store, view.member->cluster);
  view.members = ListMembers(store, view.member->cluster);
  return view;
}

}  // namespace Lab
