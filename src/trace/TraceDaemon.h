// The trace daemon as its host sees it: an init script and the keys of a configuration file.
#pragma once

#include "frame/Frame.h"
#include "frame/HostFile.h"

namespace OrvaneCli::DovraNamespace::TraceDaemon {

inline constexpr const char* kConfigurationFile = "/etc/orvane/dovra/dovratraced.conf";

// A key is written with its "="; the value follows up to the end of the line.

/// The directory that the daemon is to use, in double quotes.
inline constexpr const char* kVolumeKey = "DOVRATRACED_VOLUME=";
/// The directory that the daemon uses. Only the daemon writes this key.
inline constexpr const char* kLastSelectedVolumeKey = "DOVRATRACED_LAST_SELECTED_VOLUME=";
inline constexpr const char* kMaxFilesKey = "DOVRATRACED_ROTATE_MAX_FILES=";
/// In MB.
inline constexpr const char* kFileSizeKey = "DOVRATRACED_ROTATE_FILE_SIZE=";
/// "1" or "0".
inline constexpr const char* kUrgentToSyslogKey = "DOVRATRACED_LOG_URGENT_TO_SYSLOG=";

/// The init script's exit status of "status" when the daemon does not run.
inline constexpr int kNotRunning = 3;

/// Runs the init script with "status" or "restart". Returns its exit status, negative when it could
/// not be run.
inline int RunInitScript(const char* verb) {
  return DovraUtil::DovraExec(HostFile("/etc/init.d/dovratraced"), verb, false, true, false);
}

}  // namespace OrvaneCli::DovraNamespace::TraceDaemon
