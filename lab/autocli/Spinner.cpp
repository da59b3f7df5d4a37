#include "autocli/Spinner.h"

#include <signal.h>
#include <unistd.h>

#include <charconv>

#include "autocli/Terminal.h"
#include "store/Sqlite.h"

namespace AutoCliProgram {

using namespace std::string_view_literals;

namespace {

// All that the alarm's handler knows stands here, as it gets nothing else.
std::string_view name;
int seconds;

void Write(std::string_view text) {
  // What a terminal does not take is lost; there is nothing better to do with it.
  [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, text.data(), text.size());
}

bool OwnsTerminal() {
  return tcgetpgrp(STDERR_FILENO) == getpgrp();
}

void Count(int) {
  ++seconds;
  alarm(1);
  if (!OwnsTerminal()) return;
  char digits[12];
  const std::string_view count(digits, std::to_chars(digits, std::end(digits), seconds).ptr);
  const std::string_view reason = Lab::WaitsFor();
  // Cut off where the line ends: what wraps could not be erased.
  for (const std::string_view part :
       {"\r\x1b[?7l"sv, name, " ("sv, count, " s"sv, reason.empty() ? ""sv : ", "sv, reason,
        ")\x1b[K\x1b[?7h"sv}) {
    Write(part);
  }
}

}  // namespace

Spinner::Spinner(std::string_view command) {
  if (!TakesEscapes(STDERR_FILENO)) return;
  name = command;
  signal(SIGALRM, Count);
  alarm(1);
}

Spinner::~Spinner() {
  signal(SIGALRM, SIG_IGN);  // also what is on its way already
  alarm(0);
  signal(SIGALRM, SIG_DFL);  // a program that is run would go on ignoring it
  if (seconds > 0 && OwnsTerminal()) Write("\r\x1b[K");
  seconds = 0;
}

}  // namespace AutoCliProgram
