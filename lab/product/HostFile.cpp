#include "frame/HostFile.h"

#include "corectl/session/Session.h"
#include "hostroot/HostRoot.h"

// A stand-in host's files have a real host's paths, below the directory that is "/" to it.
namespace OrvaneCli::DovraNamespace {

std::string HostFile(const char* path) {
  const auto below = std::filesystem::path(path).relative_path();
  return Lab::HostFile(Lab::Session::Current().GetRoot(), below).string();
}

}  // namespace OrvaneCli::DovraNamespace
