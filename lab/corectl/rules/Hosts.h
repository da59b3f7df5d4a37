// Rules of hosts. Each function works within its caller's transaction, and throws
// `DovraCtlException` when it refuses.
#pragma once

#include <filesystem>
#include <string>

#include "store/Store.h"

namespace Lab {

/// The host of a new lab.
inline constexpr const char* kFirstHost = "host1";

/// Returns the message that the lab has no host of that name.
std::string UnknownHostMessage(Store& store, const std::string& name);
/// Returns the host of that name. Refuses when there is none.
HostRow RequireHost(Store& store, const std::string& name);

/// Adds a host with empty disks and a root that holds a copy of `files`.
void AddHost(Store& store, const std::string& name, const std::filesystem::path& files);
/// Makes the lab as it was when new; its host's root holds a copy of `files`.
void ResetLab(Store& store, const std::filesystem::path& files);
/// Removes the host from the lab, and from its cluster as if it had died.
void RemoveHost(Store& store, const HostRow& host);
/// Ends what does not survive a reboot: the running membership, running interfaces, a maintenance
/// operation. What is persisted stays.
void Reboot(Store& store, HostRow& host);

/// Begins to enter maintenance mode.
void StartMaintenance(Store& store, HostRow& host);
/// Cancels the maintenance operation in progress.
void CancelMaintenance(Store& store, HostRow& host);

}  // namespace Lab
