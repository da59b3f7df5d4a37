#include "baselibs/Process.h"

#include <signal.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace BaseLibs {

namespace {

/// A nameless file. Unlike a pipe, it holds up nobody: neither us, when a program does not read its
/// input, nor when another one goes on writing to its output.
class MemoryFile {
 public:
  MemoryFile() : descriptor_(memfd_create("program", MFD_CLOEXEC)) {}
  ~MemoryFile() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  int Get() const { return descriptor_; }

  /// Whether it holds the whole text, and is read from its beginning.
  bool Fill(std::string_view text) const {
    while (!text.empty()) {
      const ssize_t count = write(descriptor_, text.data(), text.size());
      if (count < 0) return false;
      text.remove_prefix(static_cast<std::size_t>(count));
    }
    return lseek(descriptor_, 0, SEEK_SET) == 0;
  }

  std::string Read() const {
    std::string text;
    std::array<char, 4096> buffer;
    const auto readOn = [&] {
      return pread(descriptor_, buffer.data(), buffer.size(), static_cast<off_t>(text.size()));
    };
    for (ssize_t count = readOn(); count > 0; count = readOn()) {
      text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return text;
  }

 private:
  int descriptor_;
};

/// Where whoever started us ignores SIGCHLD, so do we, and a program's exit status is lost.
class DefaultChildSignal {
 public:
  DefaultChildSignal() {
    struct sigaction action {};
    action.sa_handler = SIG_DFL;
    sigaction(SIGCHLD, &action, &before_);
  }
  ~DefaultChildSignal() { sigaction(SIGCHLD, &before_, nullptr); }
  DefaultChildSignal(const DefaultChildSignal&) = delete;
  DefaultChildSignal& operator=(const DefaultChildSignal&) = delete;

 private:
  struct sigaction before_ {};
};

int WaitFor(pid_t child) {
  int status = 0;
  while (waitpid(child, &status, 0) < 0) {
    if (errno != EINTR) return -1;
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

/// -1 when the program cannot be started.
pid_t Start(std::vector<std::string>& words, int input, int output) {
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, output, STDERR_FILENO);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  sigset_t defaults;
  sigemptyset(&defaults);
  sigaddset(&defaults, SIGPIPE);  // autocli ignores it; few other programs expect that
  posix_spawnattr_setsigdefault(&attributes, &defaults);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
  pid_t child = 0;
  const int failure =
      posix_spawn(&child, arguments.front(), &actions, &attributes, arguments.data(), environ);
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&actions);
  return failure == 0 ? child : -1;
}

}  // namespace

Outcome RunProgram(std::vector<std::string> words, std::string_view input) {
  const MemoryFile standardInput;
  const MemoryFile standardOutput;
  if (standardOutput.Get() < 0 || !standardInput.Fill(input)) return {};
  const DefaultChildSignal forAsLong;
  const pid_t child = Start(words, standardInput.Get(), standardOutput.Get());
  if (child < 0) return {};
  const int status = WaitFor(child);
  return {status, standardOutput.Read()};
}

}  // namespace BaseLibs
