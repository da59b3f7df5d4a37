// Default policies and resync.

#include <algorithm>

#include "corectl/info/LabInfo.h"
#include "corectl/rules/Policies.h"
#include "corectl/rules/Refuse.h"
#include "platform/corectl/DovraUtil.h"

namespace Lab {

using CoreCtl::Dovra::DovraUtil;

void LabInfo::SetPolicyDefault(const std::string& policyClass, const std::string& policy) {
  host_.Change("SetPolicyDefault", [&](Store& store, const HostRow& host) {
    DovraUtil::StringToDovraPolicyClass(policyClass);
    CheckPolicy(policy);
    store.Save(PolicyRow{host.id, policyClass, policy});
  });
}

std::string LabInfo::GetPolicyDefault(const std::string& policyClass) {
  return host_.Read("GetPolicyDefault", [&](Store& store, const HostRow& host) {
    const auto row = store.Find<PolicyRow>(host.id, policyClass);
    return row ? row->policy : "";
  });
}

void LabInfo::ClearPolicyDefaults() {
  host_.Change("ClearPolicyDefaults",
               [](Store& store, const HostRow& host) { store.RemoveAll<PolicyRow>(host.id); });
}

std::int64_t LabInfo::GetResyncThrottle() {
  return host_.Read("GetResyncThrottle",
                    [](Store&, const HostRow& host) { return host.resyncThrottle; });
}

void LabInfo::SetResyncThrottle(std::int64_t level) {
  host_.Change("SetResyncThrottle", [&](Store& store, HostRow& host) {
    if (level < 0 || level > 512) {
      Refuse("The resync throttle " + std::to_string(level) + " is not between 0 and 512 Mbps.");
    }
    host.resyncThrottle = level;
    store.Save(host);
  });
}

std::int64_t LabInfo::GetResyncBandwidth() {
  return host_.Read("GetResyncBandwidth", [](Store&, const HostRow& host) {
    return host.resyncThrottle == 0 ? host.resyncDemand
                                    : std::min(host.resyncDemand, host.resyncThrottle);
  });
}

}  // namespace Lab
