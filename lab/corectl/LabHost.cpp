#include "corectl/LabHost.h"

#include <unistd.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <system_error>

namespace Lab {

namespace fs = std::filesystem;

namespace {

Selection& Selected() {
  static Selection selection;
  return selection;
}

/// Copies under another name first: a file with its own name is complete.
void CopyFile(const fs::path& from, const fs::path& to) {
  const fs::path draft = to.string() + ".new-" + std::to_string(getpid());
  fs::copy_file(from, draft, fs::copy_options::overwrite_existing);
  fs::rename(draft, to);
}

}  // namespace

std::string UnknownHostMessage(Store& store, const std::string& name) {
  std::string names;
  for (const HostRow& host : store.ListHosts()) names += (names.empty() ? "" : ", ") + host.name;
  return "no host \"" + name + "\" in this lab; " +
         (names.empty() ? "it has none" : "its hosts are: " + names);
}

void Select(Selection selection) {
  Selected() = std::move(selection);
}

Store& OpenStore() {
  static Store store(Selected().folder);
  return store;
}

void Refuse(const std::string& reason) {
  throw HostCtl::Lib::Dovra::DovraCtlException(reason);
}

fs::path PrepareRoot(const std::string& host) {
  const fs::path root = Selected().folder / "hosts" / host;
  try {
    for (const auto& entry : fs::recursive_directory_iterator(Selected().hostFiles)) {
      const fs::path target = root / fs::relative(entry.path(), Selected().hostFiles);
      if (entry.is_directory()) {
        fs::create_directories(target);
      } else if (!fs::exists(target)) {
        CopyFile(entry.path(), target);
      }
    }
  } catch (const fs::filesystem_error& error) {
    throw LabError("the root folder of host \"" + host + "\" cannot be made: " + error.what());
  }
  return root;
}

LabHost& LabHost::Current() {
  static LabHost current = [] {
    Store& store = OpenStore();
    const auto host = store.FindHost(Selected().host);
    if (!host) throw LabError(UnknownHostMessage(store, Selected().host));
    return LabHost(store, *host);
  }();
  return current;
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
  auto host = store_.FindHost(name_);
  if (!host) throw LabError(UnknownHostMessage(store_, name_));
  return *host;
}

}  // namespace Lab
