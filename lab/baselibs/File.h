#pragma once

#include <fstream>
#include <sstream>
#include <string>

namespace BaseLibs {

/// Returns the contents of the file; empty when it cannot be read.
inline std::string ReadFile(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

}  // namespace BaseLibs
