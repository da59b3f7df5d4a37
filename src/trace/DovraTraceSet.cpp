#include <algorithm>
#include <fstream>

#include "frame/Command.h"
#include "trace/RestartPause.h"
#include "trace/TraceDaemon.h"

namespace OrvaneCli::DovraNamespace {

namespace {

constexpr std::int64_t kMaxFileSize = 4095;
constexpr int kRestartAttempts = 8;

struct Change {
  std::string key;
  std::string value;
};

/// In the order in which they are written; empty for a reset.
using Changes = std::vector<Change>;

Changes ReadChanges(const InputPtr& input) {
  Changes changes;
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

/// Returns whether the line is kept. Changes replace the lines that begin with their keys; an
/// indented line is kept. A reset keeps only comments.
bool IsKept(const std::string& line, const Changes& changes) {
  if (changes.empty()) return line.starts_with('#');
  return std::ranges::none_of(
      changes, [&line](const Change& change) { return line.starts_with(change.key); });
}

/// Returns nothing when the file cannot be read to its end, because a part must not replace it.
std::optional<std::vector<std::string>> ReadKeptLines(const Changes& changes) {
  std::ifstream file(HostFile(TraceDaemon::kConfigurationFile));
  if (!file) return std::nullopt;
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) {
    if (IsKept(line, changes)) lines.push_back(line);
  }
  if (file.bad()) return std::nullopt;
  return lines;
}

/// Returns whether the file was written completely.
bool WriteConfiguration(const std::vector<std::string>& lines, const Changes& changes) {
  std::ofstream file(HostFile(TraceDaemon::kConfigurationFile), std::ios::trunc);
  for (const std::string& line : lines) file << line << '\n';
  for (const Change& change : changes) file << change.key << change.value << '\n';
  file.close();
  return file.good();
}

/// Throws `DovraCtlException`, with the status of each attempt, when none succeeds.
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

/// Restarts the daemon if it runs, so that it reads its configuration. Throws
/// `DovraCtlException` when that fails.
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
    const auto size = Given<std::int64_t>(input, "size");
    if (size && (*size < 1 || *size > kMaxFileSize)) {
      return output->AddErrorMessage("File size should be < 4096 MB.");
    }
    const Changes changes = ReadChanges(input);
    const auto reset = Given<bool>(input, "reset");
    if (reset && !changes.empty()) {  // a reset of false counts too
      return output->AddErrorMessage("reset cannot be used with other options.");
    }
    if (changes.empty() && !reset.value_or(false)) {
      return output->AddErrorMessage("No options provided.");
    }
    const auto lines = ReadKeptLines(changes);
    if (!lines) {
      return output->AddErrorMessage("Error opening Dovra Trace Config File for reading.");
    }
    if (!WriteConfiguration(*lines, changes)) {
      return output->AddErrorMessage("Error opening Dovra Trace Config File for writing.");
    }
    // The new configuration stays even if the daemon does not restart.
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
