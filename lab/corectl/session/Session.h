// The lab and the stand-in host on which this process works. Not thread-safe.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "corectl/rules/Refuse.h"
#include "corectl/session/Operations.h"
#include "corectl/session/Views.h"
#include "store/Store.h"

namespace Lab {

struct Selection {
  std::filesystem::path directory;
  std::string host;
  std::filesystem::path hostFiles;  ///< copied into the root of a new host
  bool namesHost = false;           ///< the command line names the host
};

/// Selects the lab and the host to work on, and invalidates references to the earlier ones. Opens
/// and makes nothing yet. A store that is selected again stays open with its compiled statements,
/// but its contents are read anew.
void Select(Selection selection);

const Selection& Selected();

/// Whether the selected lab exists.
bool IsMade();

/// Returns the selected lab's store, which is opened, and made, on first use. Throws `HostError`.
Store& OpenStore();

/// Runs `work(store)` on the selected lab as one transaction.
template <class Work>
void ChangeLab(Work&& work) {
  Store& store = OpenStore();
  Store::Transaction transaction(store, Store::Transaction::Kind::kWrite);
  work(store);
  transaction.Commit();
}

class Session {
 public:
  /// Returns the selected host, until the next selection. Throws `HostError` when the lab cannot be
  /// used or has no such host.
  static Session& Current();

  explicit Session(Store& store, const HostRow& host);

  /// Runs an operation of the control library that only reads. Returns the result of
  /// `work(store, host)`, which runs in one transaction. Throws `DovraCtlException` when a fault
  /// strikes, late or not.
  template <class Work>
  auto Read(Operation operation, Work&& work) {
    InjectFault(operation);
    return Read(std::forward<Work>(work));
  }

  /// The same for an operation that writes. Throws `HostError` when the host is powered off. An
  /// exception of `work` rolls it back. A late fault strikes after the commit, which spends it.
  template <class Work>
  auto Change(Operation operation, Work&& work) {
    const auto fault = TakeFault(operation, kSpare);
    if (fault && !fault->late) Refuse(fault->message);
    const auto onHost = [&](Store& store, HostRow& host) {
      RequirePower(host.power);  // another process may have stopped it
      return work(store, host);
    };
    return Change(onHost, fault ? &*fault : nullptr);
  }

  // For other work: without faults, and also on a host that is powered off.
  template <class Work>
  auto Read(Work&& work) {
    return Run(Store::Transaction::Kind::kRead, std::forward<Work>(work));
  }
  template <class Work>
  auto Change(Work&& work, const FaultRow* late = nullptr) {
    clusterView_.reset();
    diskView_.reset();
    return Run(Store::Transaction::Kind::kWrite, std::forward<Work>(work), late);
  }

  enum LateFaults { kSpend, kSpare };
  /// Counts a call of the operation on each of its injected faults. Returns the first fault that is
  /// due, and counts it down, unless it is late and such faults are spared.
  std::optional<FaultRow> TakeFault(Operation operation, LateFaults lateFaults = kSpend);
  /// Throws `DovraCtlException` when a fault is due.
  void InjectFault(Operation operation);

  const std::string& GetName() const { return name_; }
  // As of the first use after the selection.
  std::int64_t GetApiVersion() const { return apiVersion_; }
  /// Throws `HostError` when the host is powered off.
  void RequirePower() const { RequirePower(power_); }
  /// Returns what the host knows of its cluster: read once, and again after the host has changed
  /// something. Throws `DovraCtlException` when a fault strikes.
  const ClusterView& GetClusterView(Operation operation);
  /// Returns the disks that the host knows: the same view as long as a caller holds it, until the
  /// host changes something.
  std::shared_ptr<DiskView> GetDiskView();
  /// Returns the directory that is "/" to the host.
  std::filesystem::path GetRoot();

 private:
  template <class Work>
  auto Run(Store::Transaction::Kind kind, Work&& work, const FaultRow* late = nullptr) {
    Store::Transaction transaction(store_, kind);
    HostRow host = ReadRow();
    const auto commit = [&] {
      const bool strikes = late && Spend(late->id);
      transaction.Commit();
      if (strikes) Refuse(late->message);
    };
    if constexpr (std::is_void_v<decltype(work(store_, host))>) {
      work(store_, host);
      commit();
    } else {
      auto result = work(store_, host);
      commit();
      return result;
    }
  }

  void RequirePower(bool power) const;
  HostRow ReadRow();
  /// Counts the fault down. False when another process has spent it.
  bool Spend(std::int64_t id);

  Store& store_;
  std::string name_;
  std::int64_t id_;
  std::int64_t apiVersion_;
  bool power_;
  std::optional<ClusterView> clusterView_;
  std::weak_ptr<DiskView> diskView_;
  bool hasFaults_;  // as of the first use after the selection
};

}  // namespace Lab
