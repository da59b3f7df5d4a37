// A lab's directory, apart from SQLite: its creation, checks of ownership, durable files.
// Errors are thrown as `filesystem_error` where no other exception is named.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>

namespace Lab {

// A lab's directory holds the store, its journal, and the hosts' files.
inline constexpr const char* kStoreFile = "lab.db";
inline constexpr const char* kStoreJournal = "lab.db-journal";
inline constexpr const char* kHostsDirectory = "hosts";

/// The store until it is complete.
inline constexpr const char* kStoreDraft = "lab.db.new";

/// Makes the directory and its parents where they do not exist. Throws only `HostError`, also when
/// the directory holds other files and no lab.
void PrepareLabDirectory(const std::filesystem::path& directory);

/// Throws `HostError` when another user owns the file or may write it: a lab holds programs that
/// are run and directories that are emptied. Judges a symlink and the file behind it. Accepts a
/// path that `stat` fails on.
void RequireOwn(const std::filesystem::path& path);
/// The same for each component of `below`, a path relative to `base`; `base` itself is not judged.
void RequireOwn(std::filesystem::path base, const std::filesystem::path& below);

/// Makes the directory's entries durable.
void SyncDirectory(const std::filesystem::path& directory);

/// Creates and writes a file that does not exist yet. `mode` is subject to the umask; `isSynced`
/// makes the content durable.
void WriteNewFile(const std::filesystem::path& path, const std::string& content, mode_t mode = 0666,
                  bool isSynced = true);

/// Makes everything on the directory's file system durable: far quicker than many single syncs.
void SyncAll(const std::filesystem::path& directory);

}  // namespace Lab
