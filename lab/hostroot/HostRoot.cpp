#include "hostroot/HostRoot.h"

#include <unistd.h>

#include <set>
#include <system_error>
#include <utility>

#include "baselibs/File.h"
#include "store/LabFolder.h"

namespace Lab {

namespace fs = std::filesystem;

namespace {

/// The file that tells a root the lab made from what others put beside it. It names the lab, and
/// the host whose root it is: another one may have had its name.
constexpr const char* kMark = ".autocli-host";

std::string MarkOf(const std::string& lab, const std::string& host) {
  return lab + ' ' + host + '\n';
}

bool IsRealFolder(const fs::path& path) {
  std::error_code ignored;
  return fs::is_directory(fs::symlink_status(path, ignored));
}

/// What is in the root's mark; nothing if it is not a folder that the lab made.
std::string ReadMark(const std::string& lab, const fs::path& root) {
  std::error_code ignored;
  if (!IsRealFolder(root) || !fs::is_regular_file(fs::symlink_status(root / kMark, ignored))) {
    return {};
  }
  std::string mark = BaseLibs::ReadFile(root / kMark);
  return mark.starts_with(lab + ' ') ? mark : std::string();
}

/// Deletes a root that the lab made. Its name goes first: a program of the host that is still
/// running finds no folder to write to. The mark goes last: what a killed process or a loss of
/// power leaves of the root is still known as the lab's.
void DeleteRoot(const std::string& lab, fs::path root) {
  if (const std::string name = root.filename(); !name.starts_with('.')) {
    const fs::path gone = root.parent_path() / ("." + name);
    if (!ReadMark(lab, gone).empty()) DeleteRoot(lab, gone);
    fs::rename(root, gone);
    root = gone;
  }
  for (const auto& entry : fs::directory_iterator(root)) {
    if (entry.path().filename() != kMark) fs::remove_all(entry.path());
  }
  SyncFolder(root);
  fs::remove(root / kMark);
  fs::remove(root);
}

/// What a root is called until its host is sure to be there.
fs::path DraftOf(const fs::path& hosts, const HostRow& host) {
  return hosts / ("." + host.uuid);
}

/// Gives a new host's root its name, in the place of that of an earlier host.
void SettleRoot(const std::string& lab, const fs::path& hosts, const HostRow& host) {
  const fs::path draft = DraftOf(hosts, host);
  if (ReadMark(lab, draft).empty()) return;
  const fs::path root = hosts / host.name;
  if (!ReadMark(lab, root).empty()) DeleteRoot(lab, root);
  fs::rename(draft, root);
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
  const fs::path hosts = lab / kHostsFolder;
  const fs::path draft = DraftOf(hosts, host);
  return IsRealFolder(draft) ? draft : hosts / host.name;
}

void MakeRoot(Store& store, const HostRow& host, const fs::path& files) {
  const std::string lab = store.GetLabUuid();
  const fs::path hosts = store.GetFolder() / kHostsFolder;
  try {
    fs::create_directory(hosts);
    if (!IsRealFolder(hosts)) {
      throw LabError("\"" + hosts.string() + "\" is in the way, and the lab did not make it");
    }
    const fs::path root = hosts / host.name;
    if (fs::exists(fs::symlink_status(root)) && ReadMark(lab, root).empty() &&
        !(IsRealFolder(root) && fs::is_empty(root))) {
      throw LabError("\"" + root.string() + "\" is in the way, and the lab did not make it");
    }
    const fs::path draft = DraftOf(hosts, host);
    fs::create_directory(draft);
    WriteNewFile(draft / kMark, MarkOf(lab, host.uuid), 0666, false);
    CopyFiles(files, draft);
    SyncAll(draft);
  } catch (const fs::filesystem_error& error) {
    throw LabError("the root folder of host \"" + host.name + "\" cannot be made: " + error.what());
  }
}

void SettleRoots(Store& store) {
  const std::string lab = store.GetLabUuid();
  const fs::path hosts = store.GetFolder() / kHostsFolder;
  if (!IsRealFolder(hosts)) return;
  std::set<std::string> marks;
  for (const HostRow& host : store.ListHosts()) marks.insert(MarkOf(lab, host.uuid));
  try {
    for (const HostRow& host : store.ListHosts()) SettleRoot(lab, hosts, host);
    for (const auto& entry : fs::directory_iterator(hosts)) {
      const std::string mark = ReadMark(lab, entry.path());
      if (!mark.empty() && !marks.contains(mark)) DeleteRoot(lab, entry.path());
    }
    SyncFolder(hosts);
  } catch (const fs::filesystem_error&) {  // what cannot be settled now is so the next time
  }
}

void ReplaceFile(const fs::path& root, const fs::path& name, const std::string& content) {
  const fs::path path = root / name;
  const fs::path draft = path.string() + ".new-" + std::to_string(getpid());
  try {
    fs::path folder = root;
    for (const fs::path& part : name.parent_path()) {
      const fs::path above = std::exchange(folder, folder / part);
      fs::create_directory(folder);
      SyncFolder(above);  // also where one made it that was killed then
    }
    fs::remove(draft);
    WriteNewFile(draft, content);
    fs::rename(draft, path);
    SyncFolder(folder);
  } catch (const fs::filesystem_error& error) {
    std::error_code ignored;
    fs::remove(draft, ignored);
    throw LabError("\"" + path.string() + "\" cannot be written: " + error.code().message());
  }
}

}  // namespace Lab
