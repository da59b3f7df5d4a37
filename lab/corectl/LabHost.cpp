#include "corectl/LabHost.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <memory>
#include <optional>
#include <system_error>

#include "baselibs/Text.h"

namespace Lab {

namespace fs = std::filesystem;

namespace {

/// A selection and what has been opened for it.
struct Session {
  Selection selection;
  std::optional<Store> store;
  std::optional<LabHost> host;  // after store, to which it refers
};

Session& CurrentSession() {
  static Session session;
  return session;
}

const Selection& Selected() {
  return CurrentSession().selection;
}

/// The file in a host's root that tells whose root it is: another host may have had its name.
constexpr const char* kOwnerFile = "etc/orvane/host-uuid";

std::string ReadOwner(const fs::path& root) {
  std::string uuid;
  std::ifstream(root / kOwnerFile) >> uuid;
  return uuid;
}

void WriteOwner(const fs::path& root, const std::string& uuid) {
  fs::create_directories((root / kOwnerFile).parent_path());
  std::ofstream file(root / kOwnerFile);
  file << uuid << '\n';
  file.close();
  if (file) return;
  throw fs::filesystem_error("cannot write", root / kOwnerFile, {errno, std::generic_category()});
}

/// Copies under another name first: a file with its own name is complete.
void CopyFile(const fs::path& from, const fs::path& to) {
  const fs::path draft = to.string() + ".new";
  fs::copy_file(from, draft, fs::copy_options::overwrite_existing);
  fs::rename(draft, to);
}

}  // namespace

std::string UnknownHostMessage(Store& store, const std::string& name) {
  const std::string names = BaseLibs::Join(store.ListHosts(), ", ", &HostRow::name);
  return "no host \"" + name + "\" in this lab; " +
         (names.empty() ? "it has none" : "its hosts are: " + names);
}

namespace {

HostRow ReadHost(Store& store, const std::string& name) {
  auto host = store.FindHost(name);
  if (!host) throw LabError(UnknownHostMessage(store, name));
  return *host;
}

}  // namespace

void Select(Selection selection) {
  Session& session = CurrentSession();
  session.host.reset();
  session.store.reset();
  session.selection = std::move(selection);
}

bool IsMade() {
  std::error_code ignored;
  return fs::exists(Selected().folder / "lab.db", ignored);
}

Store& OpenStore() {
  Session& session = CurrentSession();
  if (!session.store) session.store.emplace(session.selection.folder);
  return *session.store;
}

void Refuse(const std::string& reason) {
  throw HostCtl::Lib::Dovra::DovraCtlException(reason);
}

fs::path PrepareRoot(const HostRow& host) {
  fs::path root = Selected().folder / "hosts" / host.name;
  try {
    if (ReadOwner(root) != host.uuid) {
      fs::remove_all(root);
      WriteOwner(root, host.uuid);
    }
    for (const auto& entry : fs::recursive_directory_iterator(Selected().hostFiles)) {
      const fs::path target = root / fs::relative(entry.path(), Selected().hostFiles);
      if (entry.is_directory()) {
        fs::create_directories(target);
      } else if (!fs::exists(target)) {
        CopyFile(entry.path(), target);
      }
    }
  } catch (const fs::filesystem_error& error) {
    throw LabError("the root folder of host \"" + host.name + "\" cannot be made: " + error.what());
  }
  return root;
}

fs::path PrepareRoot(const std::string& host) {
  Store& store = OpenStore();
  const Store::Transaction transaction(store, Store::Transaction::Kind::kWrite);
  return PrepareRoot(ReadHost(store, host));
}

void DeleteStrayRoots(Store& store) {
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator(store.GetFolder() / "hosts", ignored)) {
    const auto host = store.FindHost(entry.path().filename().string());
    if (!host || ReadOwner(entry.path()) != host->uuid) fs::remove_all(entry.path(), ignored);
  }
}

LabHost& LabHost::Current() {
  Session& session = CurrentSession();
  if (!session.host) {
    Store& store = OpenStore();
    session.host.emplace(store, ReadHost(store, session.selection.host));
  }
  return *session.host;
}

LabHost::LabHost(Store& store, const HostRow& host)
    : store_(store),
      name_(host.name),
      id_(host.id),
      faultyOperations_(store.ListFaultyOperations(host.id)) {}

void LabHost::FailIfTold(const char* operation) {
  if (std::ranges::find(faultyOperations_, operation) == faultyOperations_.end()) return;
  Store::Transaction transaction(store_, Store::Transaction::Kind::kWrite);
  const auto message = store_.TakeFault(id_, operation);
  transaction.Commit();
  if (message) Refuse(*message);
}

HostRow LabHost::ReadRow() {
  return ReadHost(store_, name_);
}

}  // namespace Lab
