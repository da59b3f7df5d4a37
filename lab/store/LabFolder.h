// A lab's folder, as far as it is not SQLite's: what may become a lab, and who may use one.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>

namespace Lab {

/// What a lab's folder holds: the store, and the hosts' files.
inline constexpr const char* kStoreFile = "lab.db";
inline constexpr const char* kHostsFolder = "hosts";

/// The store in the making. It gets its own name when it is complete.
inline constexpr const char* kStoreDraft = "lab.db.new";

/// Makes the folder if it is not there. Throws `LabError` when it holds something and is no lab.
void PrepareLabFolder(const std::filesystem::path& folder);

/// A lab holds programs that are run: throws `LabError` when this user is root and the lab's folder
/// or anything on the way from it to `below` belongs to another user.
void RequireTrusted(const std::filesystem::path& folder, const std::filesystem::path& below);

/// Makes the folder's entries outlast a loss of power. Throws `filesystem_error`.
void SyncFolder(const std::filesystem::path& folder);

/// Writes a file that is not there yet, for as many of those whom `mode` names as the umask lets.
/// `isSynced` makes its content outlast a loss of power. Throws `filesystem_error`.
void WriteNewFile(const std::filesystem::path& path, const std::string& content, mode_t mode = 0666,
                  bool isSynced = true);

/// Makes all outlast a loss of power that is on the folder's file system: for many new files and
/// folders far quicker than one by one. Throws `filesystem_error`.
void SyncAll(const std::filesystem::path& folder);

}  // namespace Lab
