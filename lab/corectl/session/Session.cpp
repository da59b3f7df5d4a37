#include "corectl/session/Session.h"

#include <sys/stat.h>

#include <optional>
#include <system_error>

#include "baselibs/HostError.h"
#include "baselibs/Strings.h"
#include "corectl/rules/Hosts.h"
#include "hostroot/HostRoot.h"
#include "store/LabDirectory.h"

namespace Lab {

namespace fs = std::filesystem;
using BaseLibs::HostError;

namespace {

/// A selection and what has been opened for it.
struct State {
  Selection selection;
  std::optional<Store> store;
  bool isChecked = false;          // the store is the one that was selected
  std::optional<Session> session;  // declared after the store that it uses
};

/// Never destroyed: closing the store at exit would take longer than a short command.
State& CurrentState() {
  static auto& state = *new State;
  return state;
}

HostRow ReadHost(Store& store, const std::string& name) {
  auto host = store.FindHost(name);
  if (!host) throw HostError(UnknownHostMessage(store, name));
  return *host;
}

}  // namespace

void Select(Selection selection) {
  State& state = CurrentState();
  state.session.reset();
  if (selection.directory != state.selection.directory) state.store.reset();
  state.isChecked = false;
  state.selection = std::move(selection);
}

const Selection& Selected() {
  return CurrentState().selection;
}

bool IsMade() {
  std::error_code ignored;
  return fs::exists(Selected().directory / kStoreFile, ignored);
}

namespace {

void FillNewLab(Store& store) {
  AddHost(store, kFirstHost, Selected().hostFiles);
}

void SettleNewLab(Store& store) {
  const auto failures = SettleRoots(store);
  if (!failures.empty()) throw HostError(failures.front());
}

}  // namespace

Store& OpenStore() {
  State& state = CurrentState();
  if (state.isChecked) return *state.store;
  if (!state.store || !state.store->IsCurrent()) {
    // Nothing that this process or its programs create may be writable by other users.
    umask(umask(022) | 022);
    state.store.emplace(state.selection.directory, NewLab{FillNewLab, SettleNewLab});
  }
  state.isChecked = true;
  return *state.store;
}

Session& Session::Current() {
  State& state = CurrentState();
  if (!state.session) {
    Store& store = OpenStore();
    state.session.emplace(store, ReadHost(store, state.selection.host));
  }
  return *state.session;
}

Session::Session(Store& store, const HostRow& host)
    : store_(store),
      name_(host.name),
      id_(host.id),
      apiVersion_(host.apiVersion),
      power_(host.power),
      hasFaults_(store.Has<FaultRow>(host.id)) {
  RequireOwn(RootOf(store.GetDirectory(), host));
}

std::optional<FaultRow> Session::TakeFault(Operation operation, LateFaults lateFaults) {
  if (!hasFaults_) return std::nullopt;
  const auto isCounted = [=](const FaultRow& fault) {
    return fault.operation == operation.GetName();
  };
  // Read first: a lab that cannot be written answers as long as no fault counts the call.
  if (std::ranges::none_of(store_.List<FaultRow>(id_), isCounted)) return std::nullopt;
  Store::Transaction transaction(store_, Store::Transaction::Kind::kWrite);
  std::optional<FaultRow> due;
  for (FaultRow& fault : store_.List<FaultRow>(id_)) {
    if (!isCounted(fault)) continue;
    if (fault.passes > 0) {
      --fault.passes;
      store_.Save(fault);
    } else if (!due) {
      due = fault;
    }
  }
  if (due && !(due->late && lateFaults == kSpare)) Spend(due->id);
  transaction.Commit();
  return due;
}

void Session::RequirePower(bool power) const {
  if (!power) throw HostError("host \"" + name_ + "\" is powered off");
}

bool Session::Spend(std::int64_t id) {
  auto fault = store_.Find<FaultRow>(id);
  if (!fault) return false;
  if (--fault->remaining > 0) {
    store_.Save(*fault);
  } else {
    store_.Remove<FaultRow>(id);
  }
  return true;
}

void Session::InjectFault(Operation operation) {
  if (const auto fault = TakeFault(operation)) Refuse(fault->message);
}

const ClusterView& Session::GetClusterView(Operation operation) {
  InjectFault(operation);
  if (!clusterView_) clusterView_ = Read(ReadClusterView);
  return *clusterView_;
}

std::shared_ptr<DiskView> Session::GetDiskView() {
  auto view = diskView_.lock();
  if (!view) diskView_ = view = std::make_shared<DiskView>(Read(ReadDiskView));
  return view;
}

fs::path Session::GetRoot() {
  return RootOf(store_.GetDirectory(), ReadRow());
}

HostRow Session::ReadRow() {
  return ReadHost(store_, name_);
}

}  // namespace Lab
