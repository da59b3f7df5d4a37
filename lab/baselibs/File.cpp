#include "baselibs/File.h"

#include <fstream>
#include <sstream>

namespace BaseLibs {

std::string ReadFile(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

}  // namespace BaseLibs
