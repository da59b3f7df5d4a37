#include "autocli/Spinner.h"

#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <charconv>
#include <cstring>

#include "autocli/Terminal.h"
#include "store/Sqlite.h"

namespace AutoCliProgram {

namespace {

std::atomic<const char*> name;
volatile sig_atomic_t seconds;

void Write(const char* text) {
  // There is nothing to do about a terminal that takes no output.
  [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, text, std::strlen(text));
}

bool OwnsTerminal() {
  return tcgetpgrp(STDERR_FILENO) == getpgrp();
}

void Count(int) {
  const int reason = errno;
  seconds = seconds + 1;
  alarm(1);
  if (OwnsTerminal()) {
    char digits[12];
    *std::to_chars(digits, std::end(digits), static_cast<int>(seconds)).ptr = '\0';
    const char* const wait = Lab::WaitsFor();
    // Without line wrapping, since a wrapped line could not be erased.
    const char* const parts[] = {
        "\r\x1b[?7l", name, " (", digits, " s", *wait == '\0' ? "" : ", ", wait, ")\x1b[K\x1b[?7h"};
    for (const char* const part : parts) Write(part);
  }
  errno = reason;
}

}  // namespace

Spinner::Spinner(const std::string& command) {
  if (!TakesEscapes(STDERR_FILENO)) return;
  name = command.c_str();
  signal(SIGALRM, Count);
  alarm(1);
}

Spinner::~Spinner() {
  signal(SIGALRM, SIG_IGN);  // discards a pending alarm, too
  alarm(0);
  signal(SIGALRM, SIG_DFL);  // programs that are run inherit SIG_IGN
  if (seconds > 0 && OwnsTerminal()) Write("\r\x1b[K");
  seconds = 0;
}

}  // namespace AutoCliProgram
