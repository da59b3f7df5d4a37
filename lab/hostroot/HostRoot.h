// The folders that are "/" to the lab's hosts.
#pragma once

#include <filesystem>
#include <string>

#include "store/Store.h"

namespace Lab {

// A root is made, complete, before its host's row is committed, and gets its name only afterwards:
// at no moment has a host that is there no root, or that of another one that had its name.

/// Where the host's root is, whether it is there or not.
std::filesystem::path RootOf(const std::filesystem::path& lab, const HostRow& host);

/// Makes the root of a new host out of the files in `files`. Works within a transaction that
/// writes. Throws `LabError`, also when something is in the way that the lab did not make.
void MakeRoot(Store& store, const HostRow& host, const std::filesystem::path& files);

/// Gives new hosts' roots their names and deletes the roots that the lab made for hosts that are
/// gone; touches nothing else. Works within a transaction that writes, after the one that added or
/// removed hosts: until then it could still have been undone. What fails stays for the next time.
void SettleRoots(Store& store);

/// Writes the file below the root anew, so that its readers see the old or the new content, and
/// makes the folders that it needs there; the root it does not make. Throws `LabError`.
void ReplaceFile(const std::filesystem::path& root, const std::filesystem::path& name,
                 const std::string& content);

}  // namespace Lab
