// The lab's hosts as such: how one comes, restarts and goes. Each function works within its
// caller's transaction and refuses with `DovraCtlException`.
#pragma once

#include <filesystem>
#include <string>

#include "store/Store.h"

namespace Lab {

/// The host of a new lab.
inline constexpr const char* kFirstHost = "host1";

/// Explains that the lab has no host of that name.
std::string UnknownHostMessage(Store& store, const std::string& name);
/// Refuses a name that no host has.
HostRow RequireHost(Store& store, const std::string& name);

/// Adds a host with interfaces, empty disks, and a root that holds a copy of `files`.
void AddHost(Store& store, const std::string& name, const std::filesystem::path& files);
/// Makes the lab as it was when new. `files` is for its host's root.
void ResetLab(Store& store, const std::filesystem::path& files);
/// Takes the host out of the lab, and out of its cluster as if it had died.
void RemoveHost(Store& store, const HostRow& host);
/// What a host's restart takes away: its membership as others see it, its storage network, a
/// maintenance operation in progress. What is persisted stays.
void Reboot(Store& store, HostRow& host);

/// Lets the host begin to enter maintenance mode, or gives that up.
void StartMaintenance(Store& store, HostRow& host);
void CancelMaintenance(Store& store, HostRow& host);

}  // namespace Lab
