#include "hostroot/HostRoot.h"

#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <system_error>
#include <utility>

#include "baselibs/File.h"
#include "baselibs/HostError.h"
#include "store/LabDirectory.h"
#include "store/Uuids.h"

namespace Lab {

namespace fs = std::filesystem;
using BaseLibs::HostError;

namespace {

/// The file that marks a root that the lab made. It holds the lab's UUID, the host's UUID and name.
constexpr const char* kMark = ".autocli-host";
/// Between a file's name and the id of the process that writes its replacement.
constexpr const char* kDraftInfix = ".new-";

bool IsRealDirectory(const fs::path& path) {
  std::error_code ignored;
  return fs::is_directory(fs::symlink_status(path, ignored));
}

/// Returns the host whose root the directory is; nothing when the lab did not make it. The mark
/// alone does not count: it is copied with the directory.
std::optional<HostRow> OwnerOf(const std::string& lab, const fs::path& root) {
  std::error_code ignored;
  const fs::path file = root / kMark;
  if (!IsRealDirectory(root) || !fs::is_regular_file(fs::symlink_status(file, ignored))) return {};
  if (access(file.c_str(), R_OK) != 0) {
    throw fs::filesystem_error("cannot read", file, {errno, std::generic_category()});
  }
  std::istringstream mark(BaseLibs::ReadFile(file));
  std::string itsLab;
  HostRow host;
  mark >> itsLab >> host.uuid >> host.name;
  const std::string name = root.filename();
  const bool isItsName = name == host.name || name == '.' + host.uuid;
  if (!mark || itsLab != lab || !isItsName) return {};
  return host;
}

/// Returns the path of a host's root until `SettleRoots` names it, and after the host's removal.
fs::path HiddenRootOf(const fs::path& hosts, const HostRow& host) {
  return hosts / ("." + host.uuid);
}

/// Deletes the root of a removed host. It is renamed first, so that a running program of the host
/// finds no directory to write to. The mark goes last, so that the rest of an interrupted deletion
/// is known as the lab's.
void DeleteRoot(const fs::path& root, const HostRow& host) {
  RequireOwn(root);
  const fs::path gone = HiddenRootOf(root.parent_path(), host);
  if (root != gone) fs::rename(root, gone);
  for (const auto& entry : fs::directory_iterator(gone)) {
    if (entry.path().filename() != kMark) fs::remove_all(entry.path());
  }
  SyncDirectory(gone);
  fs::remove(gone / kMark);
  fs::remove(gone);
}

[[noreturn]] void RefuseInTheWay(const fs::path& path) {
  throw HostError("\"" + path.string() + "\" is in the way, and the lab did not make it");
}

/// Throws `HostError` when something is at the path; an empty directory gives way to a rename.
void RequireFree(const fs::path& path) {
  const bool isFree =
      IsRealDirectory(path) ? fs::is_empty(path) : !fs::exists(fs::symlink_status(path));
  if (!isFree) RefuseInTheWay(path);
}

std::string Reason(const fs::filesystem_error& error) {
  return "\"" + error.path1().string() + "\": " + error.code().message();
}

/// Deletes an unmarked root that a killed process left: a hidden directory named after a UUID that
/// contains nothing but, at most, an empty mark.
void ClearUnmarked(const fs::path& path) {
  if (!IsRealDirectory(path) || !IsUuid(path.filename().string().substr(1))) return;
  for (const auto& entry : fs::directory_iterator(path)) {
    if (entry.path().filename() != kMark || entry.is_symlink() || !fs::is_empty(entry)) return;
  }
  fs::remove(path / kMark);
  fs::remove(path);
}

/// Gives a new host's root its name, in the place of the root of an earlier host of that name.
void SettleDraft(const std::string& lab, const fs::path& draft, const HostRow& host) {
  if (!OwnerOf(lab, draft)) return ClearUnmarked(draft);
  const fs::path root = draft.parent_path() / host.name;
  const auto earlier = OwnerOf(lab, root);
  if (earlier && earlier->uuid != host.uuid) DeleteRoot(root, *earlier);
  RequireFree(root);
  fs::rename(draft, root);
}

/// Deletes the drafts of the state file that killed processes left in a host's root.
void ClearDrafts(const fs::path& root) {
  const fs::path state = root / kTraceState;
  const std::string prefix = state.filename().string() + kDraftInfix;
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator(state.parent_path(), ignored)) {
    const std::string name = entry.path().filename();
    if (!name.starts_with(prefix)) continue;
    pid_t writer = 0;
    std::from_chars(name.data() + prefix.size(), name.data() + name.size(), writer);
    if (writer <= 0 || kill(writer, 0) == 0 || errno != ESRCH) continue;
    RequireOwn(root, kTraceState);
    fs::remove(entry.path());
  }
}

void CopyFiles(const fs::path& from, const fs::path& to) {
  for (const auto& entry : fs::directory_iterator(from)) {
    const fs::path target = to / entry.path().filename();
    if (entry.is_directory()) {
      fs::create_directory(target);
      CopyFiles(entry.path(), target);
    } else {
      const auto mode = entry.status().permissions();
      const bool isProgram = (mode & fs::perms::owner_exec) != fs::perms::none;
      WriteNewFile(target, BaseLibs::ReadFile(entry.path()), isProgram ? 0777 : 0666, false);
    }
  }
}

}  // namespace

fs::path RootOf(const fs::path& lab, const HostRow& host) {
  const fs::path hosts = lab / kHostsDirectory;
  const fs::path draft = HiddenRootOf(hosts, host);
  return IsRealDirectory(draft) ? draft : hosts / host.name;
}

fs::path HostFile(const fs::path& root, const fs::path& name) {
  for (const fs::path& file :
       {name, fs::path(kTraceState), fs::path("var/log/notifyDatastore.log")}) {
    RequireOwn(root, file);
  }
  return root / name;
}

void MakeRoot(Store& store, const HostRow& host, const fs::path& files) {
  const std::string lab = store.GetLabUuid();
  const fs::path hosts = store.GetDirectory() / kHostsDirectory;
  try {
    fs::create_directory(hosts);
    if (!IsRealDirectory(hosts)) RefuseInTheWay(hosts);
    const fs::path root = hosts / host.name;
    if (!OwnerOf(lab, root)) RequireFree(root);
    const fs::path draft = HiddenRootOf(hosts, host);
    fs::create_directory(draft);
    WriteNewFile(draft / kMark, lab + ' ' + host.uuid + ' ' + host.name + '\n', 0666, false);
    CopyFiles(files, draft);
    SyncAll(draft);
  } catch (const fs::filesystem_error& error) {
    throw HostError("the root directory of host \"" + host.name +
                    "\" cannot be made: " + Reason(error));
  }
}

std::vector<std::string> SettleRoots(Store& store) {
  const std::string lab = store.GetLabUuid();
  const fs::path hosts = store.GetDirectory() / kHostsDirectory;
  if (!IsRealDirectory(hosts)) return {};
  std::map<std::string, HostRow> drafts;
  std::set<std::string> roots;
  for (HostRow& host : store.List<HostRow>()) {
    roots.insert(host.name);
    drafts.emplace(HiddenRootOf(hosts, host).filename(), std::move(host));
  }
  const auto settle = [&](const fs::path& path) {
    const std::string name = path.filename();
    if (const auto draft = drafts.find(name); draft != drafts.end()) {
      SettleDraft(lab, path, draft->second);
    } else if (roots.contains(name)) {
      ClearDrafts(path);
    } else if (const auto owner = OwnerOf(lab, path)) {
      if (!drafts.contains('.' + owner->uuid)) DeleteRoot(path, *owner);
    } else if (name.starts_with('.')) {
      ClearUnmarked(path);
    }
  };
  std::vector<std::string> failures;
  const auto attempt = [&](auto&& work, const fs::path& path) {
    try {
      work(path);
    } catch (const fs::filesystem_error& error) {
      failures.push_back("\"" + path.string() + "\" cannot be put in order: " + Reason(error));
    } catch (const HostError& error) {
      failures.emplace_back(error.what());
    }
  };
  std::set<fs::path> entries;
  attempt([&](const fs::path& path) { entries.insert(fs::directory_iterator(path), {}); }, hosts);
  for (const fs::path& entry : entries) attempt(settle, entry);
  return failures;
}

void ReplaceFile(const fs::path& root, const fs::path& name, const std::string& content) {
  RequireOwn(root, name);
  const fs::path path = root / name;
  const fs::path draft = path.string() + kDraftInfix + std::to_string(getpid());
  try {
    fs::path directory = root;
    for (const fs::path& part : name.parent_path()) {
      const fs::path above = std::exchange(directory, directory / part);
      fs::create_directory(directory);
      SyncDirectory(above);  // also of a directory whose maker was killed
    }
    fs::remove(draft);
    WriteNewFile(draft, content);
    fs::rename(draft, path);
    SyncDirectory(directory);
  } catch (const fs::filesystem_error& error) {
    std::error_code ignored;
    fs::remove(draft, ignored);
    throw HostError("\"" + path.string() + "\" cannot be written: " + error.code().message());
  }
}

}  // namespace Lab
