#include "autocli/Terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <system_error>

#include "baselibs/Environment.h"

namespace AutoCliProgram {

namespace {

/// Returns the columns of the terminal; 80 when they are not known.
std::size_t Columns() {
  winsize size{};
  const bool isKnown = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col != 0;
  return isKnown ? size.ws_col : 80;
}

}  // namespace

bool TakesEscapes(int descriptor) {
  if (isatty(descriptor) == 0) return false;
  const std::string terminal = BaseLibs::Environment("TERM");
  return !terminal.empty() && terminal != "dumb" && BaseLibs::Environment("NO_COLOR").empty();
}

CliTools::Style ResultStyle() {
  if (isatty(STDOUT_FILENO) == 0) return {};
  return {Columns(), TakesEscapes(STDOUT_FILENO)};
}

CliTools::Style HelpStyle() {
  constexpr std::size_t kNarrowest = 40;  // narrower help would be a column of single words
  return {std::max(Columns(), kNarrowest), TakesEscapes(STDOUT_FILENO)};
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
