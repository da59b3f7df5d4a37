// Runs a command as the framework does, against a control library that records what is asked of it,
// and checks what was asked, exactly and in order, and what the command leaves.
#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/clitools/AutoCli.h"
#include "platform/hostctl/DovraPluginFactory.h"

namespace Testing {

using Strings = std::vector<std::string>;

/// The control library: it records every operation, answers with what the test set, and throws
/// where the test says. There is one at a time; the linked operations use it.
struct RecordingLibrary {
  /// "Operation(argument, ...)" for each call, in order. Strings are unquoted, lists in brackets.
  /// `GetDovraPlugin` and `GetDovraInfo` are recorded too, the shell's commands, and the pauses
  /// between restarts of the trace daemon.
  Strings calls;
  /// By a call's position in `calls`: what it throws after it was recorded.
  std::map<std::size_t, std::exception_ptr> exceptions;

  bool pluginLives = false;  ///< the plug-in object is not released yet

  // What the operations return. In a list of answers each call takes the first one; the last stays.
  bool hasPlugin = true;
  bool hasInfo = true;
  bool hasInfo2 = true;  ///< the information object has the newer operations
  HostCtl::Dovra::DovraClusterConfig config{true, "c0000000-0000-0000-0000-000000000001"};
  HostCtl::Dovra::DovraConfigGeneration generation;
  bool isWitness = false;
  Strings members;
  bool unicastMode = false;
  bool stretched = true;
  bool autoClaim = false;
  std::set<std::string> trafficInUse;
  std::vector<std::shared_ptr<HostCtl::Dovra::DovraKnicConfig2>> knics;
  HostCtl::Dovra::DovraInfo::Datastores datastores;
  Strings unicastAgents;
  Strings unicastWitnesses;
  std::vector<int> removeUnicastAgentResults = {true};
  HostCtl::Dovra::DovraInfo::DiskLuns luns;
  std::vector<HostCtl::Dovra::Uuid> serviceDisks;
  std::map<HostCtl::Dovra::Uuid, HostCtl::Dovra::DovraDiskInfo> diskInfos;  ///< else left empty
  std::map<std::string, std::string> names;  ///< policies by class, datastores' names by UUID
  std::string faultDomainName = "site-a";
  std::int64_t resync = 0;  ///< throttle and bandwidth
  std::vector<int> execStatuses = {0};
  static inline int createdUuids = 0;  ///< over all libraries: each UUID is the next number
  bool createsUuids = true;
  bool packsUuids = true;

  static inline RecordingLibrary* living = nullptr;
  RecordingLibrary() { living = this; }
  ~RecordingLibrary() { living = nullptr; }
  RecordingLibrary(const RecordingLibrary&) = delete;
  RecordingLibrary& operator=(const RecordingLibrary&) = delete;
};

using SetUp = std::function<void(RecordingLibrary&)>;

inline const SetUp kNotEnabled = [](auto& library) { library.config.enabled = false; };
inline const SetUp kOnWitness = [](auto& library) { library.isWitness = true; };

/// What a call left: its result as "value", "Field: value, ..." or "element, ...", "none" without
/// one, and " ! " before each error message.
using Outcome = std::string;
inline Outcome Failed(const std::string& message, const std::string& root = "none") {
  return root + " ! " + message;
}

/// The calls that open the control library.
inline const Strings kOpen = {"GetDovraPlugin()", "GetDovraInfo()"};
inline Strings operator+(Strings calls, const std::string& next) {
  calls.push_back(next);
  return calls;
}

/// A tree in which the plug-in's entry point has registered its commands.
std::shared_ptr<CliTools::AutoCli::Namespace> Registered(
    std::shared_ptr<CliTools::AutoCli::Namespace> root = CliTools::AutoCli::Namespace::New());

/// Returns the command whose path below `dovra` begins the line, and the rest of the line.
std::pair<CliTools::AutoCli::Command&, std::string> Find(const std::string& line);

/// Runs a command as it is typed behind `dovra`, in words as a shell takes them.
Outcome Execute(const std::string& line);

/// Expects these calls and this outcome of the line, with a library that `setUp` has prepared.
void Check(const std::string& line, const SetUp& setUp, const Strings& calls,
           const Outcome& outcome, const char* file = __builtin_FILE(),
           int number = __builtin_LINE());

/// The host's file, set by the test.
extern std::string traceConfiguration;

}  // namespace Testing
