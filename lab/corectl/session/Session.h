// The stand-in host on which this process works at a time.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "corectl/session/ClusterView.h"
#include "corectl/session/DiskView.h"
#include "corectl/session/Operations.h"
#include "platform/hostctl/DovraCtlException.h"
#include "store/Store.h"

namespace Lab {

/// Which lab and which of its hosts the process works on, from one selection to the next.
struct Selection {
  std::filesystem::path directory;
  std::string host;
  std::filesystem::path hostFiles;  ///< what a new host's root directory is filled with
  bool namesHost = false;           ///< the host was chosen for this command, not for all
};

/// Says so. Nothing is opened or made until something is asked of the lab. References to what was
/// opened for an earlier selection end. A store that stays the same is kept open, since its
/// statements are compiled; but whatever happened to the lab since, every selection sees it as a
/// new process would.
void Select(Selection selection);

const Selection& Selected();

/// Whether the selected lab is there already.
bool IsMade();

/// The selected lab's store, opened on first use. Throws `HostError`.
Store& OpenStore();

/// Runs `work(store)` on the selected lab as a whole, as one transaction.
template <class Work>
void ChangeLab(Work&& work) {
  Store& store = OpenStore();
  Store::Transaction transaction(store, Store::Transaction::Kind::kWrite);
  work(store);
  transaction.Commit();
}

class Session {
 public:
  /// The selected host, until the next selection. Throws `HostError` when the lab cannot be used or
  /// has no such host.
  static Session& Current();

  explicit Session(Store& store, const HostRow& host);

  /// Runs one operation of the control library as one transaction that only reads, and returns
  /// what `work(store, host)` does. Throws `DovraCtlException` when the operation is to fail.
  template <class Work>
  auto Read(Operation operation, Work&& work) {
    InjectFault(operation);
    return Read(std::forward<Work>(work));
  }

  /// The same for an operation that changes something. A refusal undoes all of it.
  template <class Work>
  auto Change(Operation operation, Work&& work) {
    InjectFault(operation);
    return Change(std::forward<Work>(work));
  }

  /// The same for what is no operation of the control library.
  template <class Work>
  auto Read(Work&& work) {
    return Run(Store::Transaction::Kind::kRead, std::forward<Work>(work));
  }
  template <class Work>
  auto Change(Work&& work) {
    clusterView_.reset();
    diskView_.reset();
    return Run(Store::Transaction::Kind::kWrite, std::forward<Work>(work));
  }

  /// Counts a call of the operation on each of its injected faults. Returns the message of the
  /// first fault that is due, and uses that one up.
  std::optional<std::string> TakeFault(Operation operation);
  /// Throws it.
  void InjectFault(Operation operation);

  const std::string& GetName() const { return name_; }
  /// As of the selection.
  std::int64_t GetApiVersion() const { return apiVersion_; }
  /// What the host knows of its cluster, for an operation that reads of it. All operations of a
  /// selection are of one moment, up to the host's next change.
  const ClusterView& GetClusterView(Operation operation);
  /// The disks that the host knows of, for as long as whoever asked holds the view all of one
  /// moment, unless this host changes something.
  std::shared_ptr<DiskView> GetDiskView();
  /// The directory that is "/" to the host.
  std::filesystem::path GetRoot();

 private:
  template <class Work>
  auto Run(Store::Transaction::Kind kind, Work&& work) {
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
  std::int64_t apiVersion_;
  std::optional<ClusterView> clusterView_;
  std::weak_ptr<DiskView> diskView_;
  bool hasFaults_;  // as of the selection; mostly none
};

}  // namespace Lab
