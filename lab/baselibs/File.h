#pragma once

#include <cstdio>
#include <memory>
#include <string>

namespace BaseLibs {

/// What is in the file; nothing if it cannot be read. Not with a stream: whoever has one looks up
/// its symbols at every start.
inline std::string ReadFile(const std::string& path) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "re"),
                                                             std::fclose);
  std::string text;
  for (int c = 0; file != nullptr && (c = std::fgetc(file.get())) != EOF;) {
    text += static_cast<char>(c);
  }
  return text;
}

}  // namespace BaseLibs
