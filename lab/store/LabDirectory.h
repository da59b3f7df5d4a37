// A lab's directory, apart from SQLite: what may become a lab, who may use one, durable files.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>

namespace Lab {

/// What a lab's directory holds: the store, and the hosts' files.
inline constexpr const char* kStoreFile = "lab.db";
inline constexpr const char* kStoreJournal = "lab.db-journal";
inline constexpr const char* kHostsDirectory = "hosts";

/// The store in the making. It gets its own name when it is complete.
inline constexpr const char* kStoreDraft = "lab.db.new";

/// Makes the directory if it is not there. Throws `HostError` when it holds something and is no
/// lab.
void PrepareLabDirectory(const std::filesystem::path& directory);

/// Throws `HostError` when another user owns the file or may write it: a lab holds programs that
/// are run and directories that are emptied. Judges a symlink and the file behind it. Accepts a
/// file that does not exist.
void RequireOwn(const std::filesystem::path& path);
/// The same for each component of `below`, a path relative to `base`; `base` itself is not judged.
void RequireOwn(std::filesystem::path base, const std::filesystem::path& below);

/// Makes the directory's entries outlast a loss of power. Throws `filesystem_error`.
void SyncDirectory(const std::filesystem::path& directory);

/// Creates and writes a file that does not exist yet, with `mode` as the umask restricts it.
/// `isSynced` makes its content outlast a loss of power. Throws `filesystem_error`.
void WriteNewFile(const std::filesystem::path& path, const std::string& content, mode_t mode = 0666,
                  bool isSynced = true);

/// Makes all outlast a loss of power that is on the directory's file system: for many new files and
/// directories far quicker than one by one. Throws `filesystem_error`.
void SyncAll(const std::filesystem::path& directory);

}  // namespace Lab
