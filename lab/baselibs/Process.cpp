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
  pid_t child = 0;
  const int failure =
      posix_spawn(&child, arguments.front(), &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  return failure == 0 ? child : -1;
}

}  // namespace

Outcome RunProgram(std::vector<std::string> words, std::string_view input) {
  const MemoryFile standardInput;
  const MemoryFile standardOutput;
  const bool isFilled = !!(std::ofstream(standardInput.GetPath()) << input << std::flush);
  if (!isFilled || standardOutput.Get() < 0) return {};
  // autocli ignores SIGPIPE, which programs do not expect. With SIGCHLD ignored, as the parent
  // process may have left it, exit statuses are lost.
  const auto callersPipe = signal(SIGPIPE, SIG_DFL);
  const auto callersChild = signal(SIGCHLD, SIG_DFL);
  const pid_t child = Start(words, standardInput.Get(), standardOutput.Get());
  const int status = child < 0 ? -1 : WaitFor(child);
  signal(SIGPIPE, callersPipe);
  signal(SIGCHLD, callersChild);
  return {status, ReadFile(standardOutput.GetPath())};
}

}  // namespace BaseLibs
