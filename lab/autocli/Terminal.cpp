#include "autocli/Terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <system_error>

#include "baselibs/Environment.h"

namespace AutoCliProgram {

bool TakesEscapes(int descriptor) {
  if (isatty(descriptor) == 0) return false;
  const std::string terminal = BaseLibs::Environment("TERM");
  return !terminal.empty() && terminal != "dumb" && BaseLibs::Environment("NO_COLOR").empty();
}

std::size_t ColumnsOf(int descriptor) {
  constexpr std::size_t kPage = 80;
  winsize size{};
  if (isatty(descriptor) == 0 || ioctl(descriptor, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) {
    return kPage;
  }
  return size.ws_col;
}

CliTools::Style ResultStyle() {
  if (isatty(STDOUT_FILENO) == 0) return {};
  return {ColumnsOf(STDOUT_FILENO), TakesEscapes(STDOUT_FILENO)};
}

CliTools::Style HelpStyle() {
  constexpr std::size_t kNarrowest = 40;  // help in less would be a column of single words
  return {std::max(ColumnsOf(STDOUT_FILENO), kNarrowest), TakesEscapes(STDOUT_FILENO)};
}

void Print(std::string_view text) {
  const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  if (!written || std::fflush(stdout) != 0) {
    throw OutputError("the result cannot be written to standard output: " +
                      std::generic_category().message(errno));
  }
}

void PrintRemark(const std::string& text) {
  if (isatty(STDOUT_FILENO) != 0) std::fprintf(stderr, "%s\n", text.c_str());
}

void PrintError(const std::string& text) {
  const bool red = TakesEscapes(STDERR_FILENO);
  std::fprintf(stderr, "%s%s%s\n", red ? "\x1b[31m" : "", CliTools::Printable(text).c_str(),
               red ? "\x1b[0m" : "");
}

}  // namespace AutoCliProgram
