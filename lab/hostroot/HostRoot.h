// The directories that are "/" to the lab's hosts.
//
// A root is complete before its host is committed, and gets its name afterwards: no host ever lacks
// a root, or has that of an earlier host of its name.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "store/Store.h"

namespace Lab {

/// The state file of the stand-in trace daemon, relative to the root.
inline constexpr const char* kTraceState = "var/run/dovratraced.json";

/// Returns the host's root, whether it exists or not.
std::filesystem::path RootOf(const std::filesystem::path& lab, const HostRow& host);

/// Returns the path of a file below the root. Throws `HostError` when another user owns or may
/// write something on the way to it, to `kTraceState` or to the notification log.
std::filesystem::path HostFile(const std::filesystem::path& root,
                               const std::filesystem::path& name);

/// Makes the root of a new host, a copy of `files`. Requires a write transaction. Throws
/// `HostError`, also when something is in the way that the lab did not make.
void MakeRoot(Store& store, const HostRow& host, const std::filesystem::path& files);

/// Gives new roots their names, deletes the roots of removed hosts and what killed processes left,
/// and touches nothing that the lab did not make. Requires a write transaction, begun after the
/// change of hosts was committed. Returns an error message for each root that failed; the next call
/// tries again.
std::vector<std::string> SettleRoots(Store& store);

/// Replaces the file below the root, so that its readers see the old or the new content. Makes the
/// directories on the way to it, but not the root. Throws `HostError`, also when another user owns
/// or may write something on the way.
void ReplaceFile(const std::filesystem::path& root, const std::filesystem::path& name,
                 const std::string& content);

}  // namespace Lab
