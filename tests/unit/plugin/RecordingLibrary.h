// Runs a command against a control library that records its calls, and checks the calls, in order,
// and the command's output.
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

/// A control library that records every call, returns the values below, and throws the exceptions
/// that a test sets. At most one exists at a time.
struct RecordingLibrary {
  /// "Operation(argument, ...)" for each call, in order. Strings are unquoted, lists in brackets.
  /// `GetDovraPlugin` and `GetDovraInfo` are recorded too, the shell's commands, and the pauses
  /// between restarts of the trace daemon.
  Strings calls;
  /// What calls throw after they were recorded, by their positions in `calls`.
  std::map<std::size_t, std::exception_ptr> exceptions;

  bool pluginLives = false;  ///< the plug-in object is not released yet

  // Return values. Of a list of answers, each call takes the first one; the last one repeats.
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

/// A command's output: its result as "value", "Field: value, ..." or "element, ...", or "none", and
/// " ! " before each error message.
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

/// Returns `root` after the plug-in's entry point has registered its commands.
std::shared_ptr<CliTools::AutoCli::Namespace> Registered(
    std::shared_ptr<CliTools::AutoCli::Namespace> root = CliTools::AutoCli::Namespace::New());

/// Returns the command whose path below `dovra` begins the line, and the rest of the line.
std::pair<CliTools::AutoCli::Command&, std::string> Find(const std::string& line);

/// Runs a command line, which lacks the leading `dovra`, split into words as by a shell.
Outcome Execute(const std::string& line);

/// Expects these calls and this outcome when the line runs with a library that `setUp` prepared.
void Check(const std::string& line, const SetUp& setUp, const Strings& calls,
           const Outcome& outcome, const char* file = __builtin_FILE(),
           int number = __builtin_LINE());

/// The path of the host's trace configuration.
extern std::string traceConfiguration;

}  // namespace Testing
