// The trace daemon's configuration file: what `get` shows of it, and what `set` makes of it.
// An input is a byte that says which options are given, then path, number of files and size, each
// ended by a zero byte, then the file.

#include <sys/mman.h>
#include <unistd.h>

#include <sstream>

#include "Fuzz.h"
#include "Run.h"

using namespace Testing;

namespace {

using Strings = std::vector<std::string>;

/// The configuration, in memory.
const int kFile = memfd_create("dovratraced.conf", 0);

void WriteFile(const std::string& text) {
  if (ftruncate(kFile, 0) != 0) std::abort();
  Fuzz::Same("written", pwrite(kFile, text.data(), text.size(), 0), std::ssize(text));
}

std::string ReadFile() {
  std::string text(static_cast<std::size_t>(lseek(kFile, 0, SEEK_END)), '\0');
  Fuzz::Same("read", pread(kFile, text.data(), text.size(), 0), std::ssize(text));
  return text;
}

Strings LinesOf(const std::string& file) {
  Strings lines;
  std::istringstream text(file);
  for (std::string line; std::getline(text, line);) lines.push_back(line);
  return lines;
}

std::int64_t Number(const std::string& text) {
  return static_cast<std::int64_t>(
      std::clamp<__int128>(Fuzz::LeadingNumber(text), INT64_MIN, INT64_MAX));
}

void TakeNumber(const std::string& value, std::int64_t& setting) {
  if (value.find_first_not_of(" \t\n\v\f\r") == std::string::npos) return;
  setting = Number(value);
}

/// What `get` shows of a file.
std::string Shown(const std::string& file) {
  std::string directory = "No volume selected.";
  std::int64_t files = 8, size = 45, syslog = 1;
  for (const std::string& line : LinesOf(file)) {
    if (line.find('=') == std::string::npos) continue;
    const std::string value = line.substr(line.find('=') + 1);
    const auto sets = [&line](const char* key) {
      return line.find(std::string("DOVRATRACED_") + key + '=') == line.find_first_not_of(' ');
    };
    if (sets("LAST_SELECTED_VOLUME")) {
      directory = value;
      std::erase(directory, '"');
    } else if (sets("ROTATE_MAX_FILES")) {
      TakeNumber(value, files);
    } else if (sets("ROTATE_FILE_SIZE")) {
      TakeNumber(value, size);
    } else if (sets("LOG_URGENT_TO_SYSLOG")) {
      TakeNumber(value, syslog);
    }
  }
  return "{DOVRA Traces Directory: " + directory +
         ", Number Of Files To Rotate: " + std::to_string(files) +
         ", Maximum Trace File Size: " + std::to_string(size) +
         ", Log Urgent Traces To Syslog: " + (syslog != 0 ? "true" : "false") + "}";
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t length) {
  Host::traceConfiguration = "/proc/self/fd/" + std::to_string(kFile);
  if (length == 0) return 0;
  const unsigned given = data[0];
  Fuzz::Parts parts({data + 1, data + length}, '\0');
  const std::string path = parts.Next();
  const auto files = Number(parts.Next());
  const auto size = Number(parts.Next());
  const bool toSyslog = (given & 16) != 0, resets = (given & 96) == 96;

  RecordingLibrary library;
  WriteFile(parts.Rest());
  Fuzz::Same("get", Testing::Run("trace get"), Outcome{Shown(parts.Rest()), {}});

  Given options;
  Strings keys;
  std::string added;
  const auto give = [&](const char* option, const char* key, const auto& value,
                        const std::string& written) {
    options.emplace_back(option, value);
    keys.push_back(std::string("DOVRATRACED_") + key + "=");
    added += keys.back() + written + "\n";
  };
  if (given & 1) give("path", "VOLUME", path, '"' + path + '"');
  if (given & 2) give("numfiles", "ROTATE_MAX_FILES", files, std::to_string(files));
  if (given & 8) give("logtosyslog", "LOG_URGENT_TO_SYSLOG", toSyslog, toSyslog ? "1" : "0");
  if (given & 4) give("size", "ROTATE_FILE_SIZE", size, std::to_string(size));
  std::string error;
  if ((given & 4) && (size < 1 || size > 4095)) {
    error = "File size should be < 4096 MB.";
  } else if ((given & 32) && !keys.empty()) {
    error = "reset cannot be used with other options.";
  } else if (keys.empty() && !resets) {
    error = "No options provided.";
  }
  if (given & 32) options.emplace_back("reset", resets);

  std::string after = parts.Rest();
  if (error.empty()) {
    after.clear();
    for (const std::string& line : LinesOf(parts.Rest())) {
      const auto begins = [&line](const std::string& key) { return line.find(key) == 0; };
      const bool isDropped = resets ? line.find('#') != 0 : std::ranges::any_of(keys, begins);
      if (!isDropped) after += line + "\n";
    }
    after += added;
  }
  Fuzz::Same("set", Testing::Run("trace set", options),
             error.empty() ? Outcome{"true", {}} : Outcome{"none", {error}});
  Fuzz::Same("the file", ReadFile(), after);
  Fuzz::Same("get after set", Testing::Run("trace get"), Outcome{Shown(after), {}});
  return 0;
}
