// The control library that the commands under test meet: it records every operation, answers with
// what the test set, and throws where the test said so.
#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/hostctl/DovraPluginFactory.h"

namespace Testing {

/// There is one at a time; the linked operations use it.
struct RecordingLibrary {
  /// "Operation(argument, ...)" for each call, in order. Texts stand as they are, truth values as
  /// true and false, lists in brackets. `GetDovraPlugin` and `GetDovraInfo` are recorded too, the
  /// shell's commands, and the pauses between restarts of the trace daemon.
  std::vector<std::string> calls;
  /// The names of the operations and, before them, of the parameters that the command read.
  std::string order;
  /// By a call's place in `calls`: what it throws after it was recorded.
  std::map<std::size_t, std::exception_ptr> exceptions;

  // Objects handed out and not released yet.
  int livePlugins = 0;
  int liveObjects = 0;

  // What the operations answer.
  bool hasInfo = true;    ///< `GetDovraInfo` yields an object
  bool hasInfo2 = true;   ///< ... and it has the newer operations
  bool hasNulls = false;  ///< lists of handles begin and end with a null one
  HostCtl::Dovra::DovraClusterConfig config{true, "c0000000-0000-0000-0000-000000000001"};
  HostCtl::Dovra::DovraConfigGeneration generation;
  bool isWitness = false;
  std::vector<std::string> members;
  bool unicastMode = false;
  bool stretched = true;
  bool autoClaim = false;
  bool knicInUseForDovra = false;
  bool knicInUseForWitness = false;
  std::vector<HostCtl::Dovra::DovraKnicConfig2> knics;
  std::vector<HostCtl::Dovra::DovraDatastore> datastores;
  std::vector<std::string> unicastAgents;
  std::vector<std::string> unicastWitnesses;
  bool removeUnicastAgentResult = true;
  /// Local devices: device name and UUID text.
  std::vector<std::pair<std::string, std::string>> luns;
  std::vector<std::string> serviceDisks;  ///< UUID texts
  /// By UUID text: what `GetDiskInfo` fills in; an unknown disk leaves the record empty.
  std::map<std::string, HostCtl::Dovra::DovraDiskInfo> diskInfos;
  /// By what was asked (policy class, datastore UUID); others yield the empty text.
  std::map<std::string, std::string> policies;
  std::map<std::string, std::string> datastoreNames;
  std::int64_t throttle = 0;
  std::int64_t bandwidth = 0;
  std::string faultDomainName = "site-a";
  /// Exit statuses of `DovraExec`, in order; the last one repeats. 0 if there is none.
  std::vector<int> execStatuses;

  /// What the base library has of new UUIDs: those of its own, none, or one that it cannot read.
  enum class Uuids { kOwn, kNone, kUnreadable } uuids = Uuids::kOwn;

  RecordingLibrary();
  ~RecordingLibrary();
  RecordingLibrary(const RecordingLibrary&) = delete;
  RecordingLibrary& operator=(const RecordingLibrary&) = delete;
};

}  // namespace Testing
