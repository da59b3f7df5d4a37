#pragma once

#include <optional>
#include <vector>

#include "corectl/rules/Clusters.h"

namespace Lab {

/// What a host knows of itself and its cluster, as of one moment.
struct ClusterView {
  HostRow host;
  bool usesUnicast = false;
  std::optional<MemberRow> member;  ///< as far as it is in effect
  ClusterRow cluster;               ///< of a member
  std::vector<Member> members;      ///< of the cluster, whether they are reached or not

  /// Refuses when the host is no member.
  const MemberRow& RequireMember() const;
};

ClusterView ReadClusterView(Store& store, const HostRow& host);

}  // namespace Lab
