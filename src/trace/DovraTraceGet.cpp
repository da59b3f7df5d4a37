#include <algorithm>
#include <fstream>
#include <locale>
#include <sstream>

#include "frame/Command.h"
#include "trace/TraceDaemon.h"

namespace OrvaneCli::DovraNamespace {

namespace {

/// The daemon's settings. The initial values are shown for keys that the file lacks.
struct Settings {
  std::string directory = "No volume selected.";
  std::int64_t maxFiles = 8;
  std::int64_t fileSize = 45;
  bool urgentToSyslog = true;
};

/// Extracts a number as a stream does: skips white space, and stops at the first character that is
/// not part of the number. A string that is not a number counts as 0, a number out of range as the
/// nearest in range. A Boolean is true for any number but 0. A blank string changes nothing.
template <class Value>
void Extract(std::string_view text, Value& setting) {
  std::istringstream stream{std::string(text)};
  stream.imbue(std::locale::classic());
  stream >> setting;
}

std::string WithoutQuotes(std::string_view text) {
  std::string plain(text);
  std::erase(plain, '"');
  return plain;
}

/// Applies the line's setting, if it has one. Blanks may precede the key, tabs may not. The value
/// is the rest of the line, including a carriage return.
void ApplyLine(std::string_view line, Settings& settings) {
  line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
  const auto valueOf = [line](std::string_view key) -> std::optional<std::string_view> {
    if (!line.starts_with(key)) return std::nullopt;
    return line.substr(key.size());
  };
  if (const auto directory = valueOf(TraceDaemon::kLastSelectedVolumeKey)) {
    settings.directory = WithoutQuotes(*directory);
  } else if (const auto maxFiles = valueOf(TraceDaemon::kMaxFilesKey)) {
    Extract(*maxFiles, settings.maxFiles);
  } else if (const auto fileSize = valueOf(TraceDaemon::kFileSizeKey)) {
    Extract(*fileSize, settings.fileSize);
  } else if (const auto urgentToSyslog = valueOf(TraceDaemon::kUrgentToSyslogKey)) {
    Extract(*urgentToSyslog, settings.urgentToSyslog);
  }
}

/// Returns nothing when the file cannot be read.
std::optional<Settings> ReadConfiguration() {
  std::ifstream file(HostFile(TraceDaemon::kConfigurationFile));
  if (!file) return std::nullopt;
  Settings settings;
  for (std::string line; std::getline(file, line);) ApplyLine(line, settings);
  if (file.bad()) return std::nullopt;
  return settings;
}

}  // namespace

class DovraTraceGet final : public RecordCommand<DovraTraceGet> {
 public:
  static constexpr Record kRecord = {
      .name = "DovraTraceGet",
      .fields =
          {
              {"DOVRA Traces Directory", MetaType::kString},
              {"Number Of Files To Rotate", MetaType::kInt},
              {"Maximum Trace File Size", MetaType::kInt, "MB"},
              {"Log Urgent Traces To Syslog", MetaType::kBool},
          },
      .separator = ",",
  };

  DovraTraceGet() { DescribeFetcher("Get the Dovra tracing configuration."); }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    try {
      const int status = TraceDaemon::RunInitScript("status");
      if (status < 0) throw DovraCtlException("Checking dovratraced status failed.");
      if (status == TraceDaemon::kNotRunning) {
        return output->AddErrorMessage("Dovra is not enabled on this host.");
      }
      const std::optional<Settings> settings = ReadConfiguration();
      if (!settings) {
        return output->AddErrorMessage("Error opening Dovra trace config file for reading.");
      }
      const StructPtr record = GetOutputStructure();
      record->SetField("DOVRA Traces Directory", settings->directory);
      record->SetField("Number Of Files To Rotate", MetaInt::New(settings->maxFiles));
      record->SetField("Maximum Trace File Size", MetaInt::New(settings->fileSize));
      record->SetField("Log Urgent Traces To Syslog", MetaBool::New(settings->urgentToSyslog));
      output->SetRootObject(record);
    } catch (const DovraCtlException& failure) {
      // No blank between the two sentences: scripts look for exactly this text.
      output->AddErrorMessage(failure.GetMessage() + "Refer to /var/log/syslog.log for details.");
    }
  }
};

template CommandPtr MakeCommand<DovraTraceGet>();

}  // namespace OrvaneCli::DovraNamespace
