#include "frame/HostFile.h"

// Alone in its source, so that tests and other hosts can link the commands with paths of their own.
namespace OrvaneCli::DovraNamespace {

std::string HostFile(const char* path) {
  return path;
}

}  // namespace OrvaneCli::DovraNamespace
