// The lab's hosts as such: how one comes, restarts and goes. Each function works within its
// caller's transaction and refuses with `DovraCtlException`.
#pragma once

#include <cstdint>
#include <string>

#include "store/Store.h"

namespace Lab {

/// What a new lab holds: one host, `host1`.
void FillNewLab(Store& store);
/// Back to a lab as it was when new.
void ResetLab(Store& store);

/// Adds a host with interfaces, empty disks and files.
void AddHost(Store& store, const std::string& name);
/// Takes the host out of the lab, and out of its cluster as if it had died.
void RemoveHost(Store& store, const HostRow& host);
/// What a host's restart takes away: its membership as others see it, its storage network, a
/// maintenance operation in progress. What is persisted stays.
void Reboot(Store& store, HostRow& host);

/// Lets the host begin to enter maintenance mode, or gives that up.
void StartMaintenance(Store& store, HostRow& host);
void CancelMaintenance(Store& store, HostRow& host);

}  // namespace Lab
