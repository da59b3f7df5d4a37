// Rules of hosts. Each function works within its caller's transaction, and throws
// `DovraCtlException` when it refuses.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "store/Store.h"

namespace Lab {

/// The host of a new lab.
inline constexpr const char* kFirstHost = "host1";

/// Returns the message that the lab has no host of that name.
std::string UnknownHostMessage(Store& store, const std::string& name);
/// Returns the host of that name. Refuses when there is none.
HostRow RequireHost(Store& store, const std::string& name);

// `SettleRoots` must follow the commit of the next three.

/// Adds a host with empty disks and a root that holds a copy of `files`. Callers check the name.
void AddHost(Store& store, const std::string& name, const std::filesystem::path& files);
/// Makes the lab as it was when new; its host's root holds a copy of `files`.
void ResetLab(Store& store, const std::filesystem::path& files);
/// Removes the host from the lab and from its cluster. Returns a remark on the cluster's votes;
/// empty for a host outside any cluster.
std::string RemoveHost(Store& store, const HostRow& host);

/// Powers the host off. Its membership and interfaces stop, a maintenance operation is lost.
void Stop(Store& store, HostRow& host);
/// Powers the host on. With auto claim on, its empty disks are claimed.
void Start(Store& store, HostRow& host);
void Reboot(Store& store, HostRow& host);

/// Cuts the named hosts off from all others, but not from a witness that is not named.
void SplitNetwork(Store& store, const std::vector<std::string>& hosts);
/// Ends all splits.
void HealNetwork(Store& store);

/// Begins to enter maintenance mode.
void StartMaintenance(Store& store, HostRow& host);
/// Cancels the maintenance operation in progress.
void CancelMaintenance(Store& store, HostRow& host);

}  // namespace Lab
