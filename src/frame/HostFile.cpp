#include "frame/HostFile.h"

// Alone in its source, so that tests and stand-in hosts can replace it.
namespace OrvaneCli::DovraNamespace {

std::string HostFile(const char* path) {
  return path;
}

}  // namespace OrvaneCli::DovraNamespace
