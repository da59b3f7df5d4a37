#include "store/LabDirectory.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <set>
#include <system_error>

#include "baselibs/HostError.h"

namespace Lab {

namespace fs = std::filesystem;
using BaseLibs::HostError;

namespace {

[[noreturn]] void Fail(const char* what, const fs::path& path) {
  throw fs::filesystem_error(what, path, {errno, std::generic_category()});
}

/// An open file, which its destructor closes.
class Descriptor {
 public:
  Descriptor(const fs::path& path, int flags, mode_t mode = 0)
      : number_(open(path.c_str(), flags | O_CLOEXEC, mode)) {
    if (number_ < 0) Fail("cannot open", path);
  }
  ~Descriptor() { close(number_); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int Get() const { return number_; }

 private:
  int number_;
};

/// Makes the directory and its missing parents.
void MakeDirectory(const fs::path& directory) {
  if (fs::exists(directory)) return;
  const fs::path parent = directory.parent_path();
  MakeDirectory(parent);
  fs::create_directory(directory);
  SyncDirectory(parent);
}

/// Whether the directory holds a store, or nothing but the files of a draft.
bool MayBeLab(const fs::path& directory) {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(directory)) names.insert(entry.path().filename());
  if (names.contains(kStoreFile)) return true;
  // After a loss of power, the journal of a draft may outlive the draft.
  names.erase(std::string(kStoreDraft) + "-journal");
  if (fs::is_regular_file(fs::symlink_status(directory / kStoreDraft))) {
    names.erase(kStoreDraft);
    names.erase(kHostsDirectory);
  }
  return names.empty();
}

}  // namespace

void PrepareLabDirectory(const fs::path& directory) {
  const std::string name = "the lab's directory \"" + directory.string() + "\" ";
  try {
    MakeDirectory(directory);
    if (!fs::is_directory(directory)) throw HostError(name + "is not a directory");
    if (!MayBeLab(directory)) {
      throw HostError(name +
                      "holds other things and no lab; a new lab needs a new or empty directory");
    }
  } catch (const fs::filesystem_error& error) {
    throw HostError(name + "cannot be used: " + error.code().message());
  }
}

void RequireOwn(const fs::path& path) {
  for (const auto status : {lstat, stat}) {
    struct stat found {};
    if (status(path.c_str(), &found) != 0) continue;
    const std::string name = "\"" + path.string() + "\"";
    if (found.st_uid != geteuid()) {
      // NOLINTNEXTLINE(concurrency-mt-unsafe): the lab has one thread.
      const passwd* const owner = getpwuid(found.st_uid);
      throw HostError(name + " belongs to " +
                      (owner == nullptr ? "user " + std::to_string(found.st_uid) : owner->pw_name) +
                      "; a lab is for its owner alone: copy the lab to have your own");
    }
    if (!S_ISLNK(found.st_mode) && (found.st_mode & (S_IWGRP | S_IWOTH)) != 0) {
      std::string message = name + " can be written by other users; ";
      throw HostError(message += "a lab is for its owner alone: chmod go-w " + name);
    }
  }
}

void RequireOwn(fs::path base, const fs::path& below) {
  for (const fs::path& part : below) RequireOwn(base /= part);
}

void SyncDirectory(const fs::path& directory) {
  const Descriptor descriptor(directory.empty() ? "." : directory, O_RDONLY | O_DIRECTORY);
  // EINVAL: the file system cannot sync directories.
  if (fsync(descriptor.Get()) != 0 && errno != EINVAL) Fail("cannot sync", directory);
}

void WriteNewFile(const fs::path& path, const std::string& content, mode_t mode, bool isSynced) {
  const Descriptor file(path, O_WRONLY | O_CREAT | O_EXCL, mode);
  for (std::size_t written = 0; written < content.size();) {
    const ssize_t count = write(file.Get(), content.data() + written, content.size() - written);
    if (count < 0) Fail("cannot write", path);
    written += static_cast<std::size_t>(count);
  }
  if (isSynced && fsync(file.Get()) != 0) Fail("cannot sync", path);
}

void SyncAll(const fs::path& directory) {
  const Descriptor descriptor(directory, O_RDONLY | O_DIRECTORY);
  if (syncfs(descriptor.Get()) != 0) Fail("cannot sync", directory);
}

}  // namespace Lab
