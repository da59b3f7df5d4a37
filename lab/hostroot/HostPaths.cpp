#include "frame/HostPaths.h"

#include "corectl/LabHost.h"
#include "hostroot/HostRoot.h"

// The stand-in host's files: the real host's paths, below the folder that is "/" to it.
namespace OrvaneCli::DovraNamespace::HostPaths {

namespace {

std::string Below(const char* path) {
  return Lab::HostFile(Lab::LabHost::Current().GetRoot(), path).string();
}

}  // namespace

std::string NotifyDatastoreScript() {
  return Below("usr/lib/orvane/hostmgrd/bin/notifyDatastore.py");
}

std::string TraceConfiguration() {
  return Below("etc/orvane/dovra/dovratraced.conf");
}

std::string TraceInitScript() {
  return Below("etc/init.d/dovratraced");
}

}  // namespace OrvaneCli::DovraNamespace::HostPaths
