#include "baselibs/Process.h"

#include <signal.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>

#include "baselibs/File.h"

namespace BaseLibs {

namespace {

/// An anonymous file in memory. Unlike a pipe, it has no limit that blocks us or the program.
class MemoryFile {
 public:
  MemoryFile() : descriptor_(memfd_create("program", MFD_CLOEXEC)) {}
  ~MemoryFile() { close(descriptor_); }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  int Get() const { return descriptor_; }
  /// A file opened by this path has its own position.
  std::string GetPath() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

 private:
  int descriptor_;
};

/// Gives SIGCHLD its default effect. We may inherit that it is ignored; then exit statuses are
/// lost.
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

/// Returns the process, or -1 when the program cannot be started.
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
  sigaddset(&defaults, SIGPIPE);  // autocli ignores it, programs expect the default
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
  const bool isFilled = !!(std::ofstream(standardInput.GetPath()) << input << std::flush);
  if (!isFilled || standardOutput.Get() < 0) return {};
  const DefaultChildSignal defaultChildSignal;
  const pid_t child = Start(words, standardInput.Get(), standardOutput.Get());
  if (child < 0) return {};
  const int status = WaitFor(child);
  return {status, ReadFile(standardOutput.GetPath())};
}

}  // namespace BaseLibs
