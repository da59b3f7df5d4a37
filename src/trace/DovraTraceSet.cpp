#include <algorithm>
#include <fstream>

#include "frame/Command.h"
#include "frame/HostFile.h"
#include "trace/RestartPause.h"
#include "trace/TraceDaemon.h"

namespace OrvaneCli::DovraNamespace {

namespace {

constexpr std::int64_t kMaxFileSize = 4095;
constexpr int kRestartAttempts = 8;

/// A setting's key and its new value.
struct Change {
  std::string key;
  std::string value;
};

/// Either changes, in the order in which they are written, or a reset, or nothing.
struct Request {
  std::vector<Change> changes;
  bool reset = false;
};

std::vector<Change> ReadChanges(const InputPtr& input) {
  std::vector<Change> changes;
  if (const auto path = Given<std::string>(input, "path")) {
    changes.push_back({TraceDaemon::kVolumeKey, '"' + *path + '"'});
  }
  if (const auto files = Given<std::int64_t>(input, "numfiles")) {
    changes.push_back({TraceDaemon::kMaxFilesKey, std::to_string(*files)});
  }
  if (const auto toSyslog = Given<bool>(input, "logtosyslog")) {
    changes.push_back({TraceDaemon::kUrgentToSyslogKey, *toSyslog ? "1" : "0"});
  }
  if (const auto size = Given<std::int64_t>(input, "size")) {
    changes.push_back({TraceDaemon::kFileSizeKey, std::to_string(*size)});
  }
  return changes;
}

/// Nothing when the options do not go together, which is reported.
std::optional<Request> ReadRequest(const InputPtr& input, const OutputPtr& output) {
  const auto size = Given<std::int64_t>(input, "size");
  if (size && (*size < 1 || *size > kMaxFileSize)) {
    output->AddErrorMessage("File size should be < 4096 MB.");
    return std::nullopt;
  }
  const auto reset = Given<bool>(input, "reset");
  const Request request = {ReadChanges(input), reset.value_or(false)};
  if (reset && !request.changes.empty()) {  // a reset of false counts too
    output->AddErrorMessage("reset cannot be used with other options.");
    return std::nullopt;
  }
  if (request.changes.empty() && !request.reset) {
    output->AddErrorMessage("No options provided.");
    return std::nullopt;
  }
  return request;
}

/// A change replaces its setting's lines, though only those that begin with the key: an indented
/// one stays. A reset leaves nothing but comments.
bool IsKept(const std::string& line, const Request& request) {
  const auto sets = [&line](const Change& change) { return line.starts_with(change.key); };
  if (std::ranges::any_of(request.changes, sets)) return false;
  return !request.reset || line.starts_with('#');
}

/// Nothing when the file cannot be read: what is not known to be complete must not replace it.
std::optional<std::vector<std::string>> ReadKeptLines(const Request& request) {
  std::ifstream file(HostFile(TraceDaemon::kConfigurationFile));
  if (!file) return std::nullopt;
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) {
    if (IsKept(line, request)) lines.push_back(line);
  }
  if (file.bad()) return std::nullopt;
  return lines;
}

/// Whether the file holds all of it now.
bool WriteConfiguration(const std::vector<std::string>& lines, const Request& request) {
  std::ofstream file(HostFile(TraceDaemon::kConfigurationFile), std::ios::trunc);
  for (const std::string& line : lines) file << line << '\n';
  for (const Change& change : request.changes) file << change.key << change.value << '\n';
  file.close();
  return file.good();
}

/// Throws `DovraCtlException`, which names every attempt, when none succeeds.
void RestartDaemon() {
  std::string failures;
  for (int attempt = 1; attempt <= kRestartAttempts; ++attempt) {
    const int status = TraceDaemon::RunInitScript("restart");
    if (status == 0) return;
    failures += "Failed to restart dovratraced: " + std::to_string(status) + "; ";
    if (attempt < kRestartAttempts) PauseBeforeRestart();
  }
  throw DovraCtlException(failures);
}

/// Makes the daemon read its configuration anew, if it runs.
void ApplyConfiguration() {
  const int status = TraceDaemon::RunInitScript("status");
  if (status < 0) throw DovraCtlException("Failed to check dovratraced status.");
  if (status != TraceDaemon::kNotRunning) RestartDaemon();
}

}  // namespace

class DovraTraceSet final : public SuccessCommand<DovraTraceSet> {
 public:
  DovraTraceSet() {
    DescribeOperation("Configure Dovra trace. Please note: This command is not thread safe.");
  }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({
        {"path", "p", ParameterType::kString, Need::kOptional, "Path to store Dovra trace files."},
        {"numfiles", "f", ParameterType::kInt, Need::kOptional,
         "Log file rotation for Dovra trace files."},
        {"size", "s", ParameterType::kInt, Need::kOptional,
         "Maximum size of Dovra trace files in MB."},
        {"logtosyslog", "l", ParameterType::kBool, Need::kOptional,
         "Boolean value to enable or disable logging urgent traces to syslog."},
        {"reset", "r", ParameterType::kBool, Need::kOptional,
         "When set to true, reset defaults for Dovra trace files."},
    });
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    const auto request = ReadRequest(input, output);
    if (!request) return;
    const auto lines = ReadKeptLines(*request);
    if (!lines) {
      return output->AddErrorMessage("Error opening Dovra Trace Config File for reading.");
    }
    if (!WriteConfiguration(*lines, *request)) {
      return output->AddErrorMessage("Error opening Dovra Trace Config File for writing.");
    }
    // Whatever becomes of the daemon, the new configuration stays.
    try {
      ApplyConfiguration();
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      output->AddErrorMessage(failure.GetMessage() + " Refer /var/log/syslog.log for details.");
    }
  }
};

template CommandPtr MakeCommand<DovraTraceSet>();

}  // namespace OrvaneCli::DovraNamespace
