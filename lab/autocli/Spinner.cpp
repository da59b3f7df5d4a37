#include "autocli/Spinner.h"

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <string_view>
#include <system_error>

#include "autocli/Terminal.h"

namespace AutoCliProgram {

namespace {

using namespace std::chrono_literals;

constexpr std::string_view kErase = "\r\x1b[K";
constexpr int kSignals[] = {SIGINT, SIGQUIT, SIGTERM};

// What a signal's handler must know stands here, as it gets nothing else. The flag is held by who
// writes the line: by the thread for one frame at a time, by a handler for good, so that nothing is
// drawn over a line that is to stay empty.
std::atomic_flag writing;
std::atomic<bool> drawn;

void Write(std::string_view text) {
  // What a terminal does not take is lost; there is nothing better to do with it.
  [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, text.data(), text.size());
}

void EraseAndEnd(int signal) {
  while (writing.test_and_set()) continue;  // at most for one frame
  if (drawn) Write(kErase);
  raise(signal);  // ends the process when this handler, which was its last, returns
}

/// Signals that end the process erase the line before. One that is ignored stays so.
void CatchSignals() {
  struct sigaction action {};
  action.sa_handler = EraseAndEnd;
  action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
  sigfillset(&action.sa_mask);  // a second handler would wait for the first one for ever
  for (const int signal : kSignals) {
    struct sigaction before {};
    if (sigaction(signal, nullptr, &before) == 0 && before.sa_handler == SIG_DFL) {
      sigaction(signal, &action, nullptr);
    }
  }
}

void ReleaseSignals() {
  struct sigaction action {};
  action.sa_handler = SIG_DFL;
  for (const int signal : kSignals) {
    struct sigaction now {};
    if (sigaction(signal, nullptr, &now) == 0 && now.sa_handler == EraseAndEnd) {
      sigaction(signal, &action, nullptr);
    }
  }
}

/// A process in the background must leave the line to the one before it.
bool IsInForeground() {
  return tcgetpgrp(STDERR_FILENO) == getpgrp();
}

}  // namespace

Spinner::Spinner(std::string command) : command_(std::move(command)) {
  if (!IsDressed(STDERR_FILENO)) return;
  CatchSignals();
  // The thread gets no signals, so that a handler never waits for the thread that it stopped.
  sigset_t all;
  sigset_t before;
  sigfillset(&all);
  pthread_sigmask(SIG_SETMASK, &all, &before);
  try {
    thread_ = std::thread([this] { Turn(); });
  } catch (const std::system_error&) {  // then the command does without
  }
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

Spinner::~Spinner() {
  if (!thread_.joinable()) return;
  {
    const std::lock_guard lock(mutex_);
    done_ = true;
  }
  changed_.notify_one();
  thread_.join();
  if (drawn.exchange(false)) Write(kErase);
  ReleaseSignals();
}

void Spinner::Turn() {
  constexpr auto kSilence = 1s;
  constexpr auto kFrame = 100ms;
  const auto start = std::chrono::steady_clock::now();
  std::unique_lock lock(mutex_);
  auto wait = kSilence + 0ms;
  for (std::size_t frame = 0; !changed_.wait_for(lock, wait, [this] { return done_; }); ++frame) {
    const auto elapsed = std::chrono::steady_clock::now() - start;
    Draw(frame, std::chrono::floor<std::chrono::seconds>(elapsed));
    wait = kFrame;
  }
}

void Spinner::Draw(std::size_t frame, std::chrono::seconds elapsed) const {
  constexpr std::string_view kFrames = "|/-\\";
  if (!IsInForeground() || writing.test_and_set()) return;
  const std::string time = " (" + std::to_string(elapsed.count()) + " s)";
  std::string line = {kFrames[frame % kFrames.size()], ' '};
  // A line that wraps could not be erased.
  const std::size_t used = line.size() + time.size() + 1;
  const std::size_t columns = std::max(ColumnsOf(STDERR_FILENO), used);
  line += command_.substr(0, columns - used) + time;
  drawn = true;
  Write('\r' + line + "\x1b[K");
  writing.clear();
}

}  // namespace AutoCliProgram
