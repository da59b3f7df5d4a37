#include "frame/HostPaths.h"

// The paths of a real host, and nothing else: whoever links the commands against another host
// replaces this file.
namespace OrvaneCli::DovraNamespace::HostPaths {

std::string NotifyDatastoreScript() {
  return "/usr/lib/orvane/hostmgrd/bin/notifyDatastore.py";
}

std::string TraceConfiguration() {
  return "/etc/orvane/dovra/dovratraced.conf";
}

std::string TraceInitScript() {
  return "/etc/init.d/dovratraced";
}

}  // namespace OrvaneCli::DovraNamespace::HostPaths
