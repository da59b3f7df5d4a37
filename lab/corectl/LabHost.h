// The stand-in host on which this process works.
#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "platform/hostctl/DovraCtlException.h"
#include "store/Store.h"

namespace Lab {

/// Which lab and which of its hosts the process works on.
struct Selection {
  std::filesystem::path folder;
  std::string host;
  std::filesystem::path hostFiles;  ///< what a new host's root folder is filled with
};

/// Says so. Nothing is opened or made until something is asked of the lab.
void Select(Selection selection);

/// The selected lab's store, opened on first use. Throws `LabError`.
Store& OpenStore();

/// Throws `DovraCtlException`: the control library's way to refuse.
[[noreturn]] void Refuse(const std::string& reason);

/// What is said of a host that the lab does not have.
std::string UnknownHostMessage(Store& store, const std::string& name);

/// The folder that is "/" to the host, filled with the host's files as far as they are missing.
/// Throws `LabError`.
std::filesystem::path PrepareRoot(const std::string& host);

class LabHost {
 public:
  /// The selected host. Throws `LabError` when the lab cannot be used or has no such host.
  static LabHost& Current();

  explicit LabHost(Store& store, const HostRow& host);

  /// Runs one operation of the control library as one transaction that only reads, and returns
  /// what `work(store, host)` does. Throws `DovraCtlException` when the operation is to fail.
  template <class Work>
  auto Read(const char* operation, Work&& work) {
    return Run(Store::Transaction::Kind::kRead, operation, std::forward<Work>(work));
  }

  /// The same for an operation that changes something. A refusal undoes all of it.
  template <class Work>
  auto Change(const char* operation, Work&& work) {
    return Run(Store::Transaction::Kind::kWrite, operation, std::forward<Work>(work));
  }

  /// Throws the operation's next injected fault, if there is one.
  void FailIfTold(const char* operation);

  const std::string& GetName() const { return name_; }

 private:
  template <class Work>
  auto Run(Store::Transaction::Kind kind, const char* operation, Work&& work) {
    FailIfTold(operation);
    Store::Transaction transaction(store_, kind);
    HostRow host = ReadRow();
    if constexpr (std::is_void_v<decltype(work(store_, host))>) {
      work(store_, host);
      transaction.Commit();
    } else {
      auto result = work(store_, host);
      transaction.Commit();
      return result;
    }
  }

  HostRow ReadRow();

  Store& store_;
  std::string name_;
  std::int64_t id_;
  std::vector<std::string> faultyOperations_;  // as of the start; mostly none
};

}  // namespace Lab
