#include "autocli/Spinner.h"

#include <signal.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>

#include "autocli/Terminal.h"
#include "store/Sqlite.h"

namespace AutoCliProgram {

namespace {

// All that the alarm's handler knows stands here, as it gets nothing else.
std::string_view name;
std::size_t columns;
int seconds;
bool drawn;

constexpr std::size_t kRoomForSeconds = 16;  // a line that wraps could not be erased

void Write(std::string_view text) {
  // What a terminal does not take is lost; there is nothing better to do with it.
  [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, text.data(), text.size());
}

void Count(int) {
  ++seconds;
  if (tcgetpgrp(STDERR_FILENO) != getpgrp()) return;  // the line is somebody else's
  drawn = true;
  char digits[12];
  Write("\r");
  Write(name);
  Write(" (");
  Write({digits, std::to_chars(digits, digits + sizeof digits, seconds).ptr});
  Write(" s");
  const std::string_view reason = Lab::WaitsFor();
  if (!reason.empty() && name.size() + kRoomForSeconds + reason.size() < columns) {
    Write(", ");
    Write(reason);
  }
  Write(")\x1b[K");
}

void CallEvery(int interval, void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  sigaction(SIGALRM, &action, nullptr);
  const itimerval timer = {{interval, 0}, {interval, 0}};
  setitimer(ITIMER_REAL, &timer, nullptr);
}

}  // namespace

Spinner::Spinner(std::string_view command) {
  if (!TakesEscapes(STDERR_FILENO)) return;
  columns = ColumnsOf(STDERR_FILENO);
  name = command.substr(0, std::max(columns, kRoomForSeconds) - kRoomForSeconds);
  seconds = 0;
  CallEvery(1, Count);
}

Spinner::~Spinner() {
  CallEvery(0, SIG_DFL);
  if (drawn) Write("\r\x1b[K");
  drawn = false;
}

}  // namespace AutoCliProgram
