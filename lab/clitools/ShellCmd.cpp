#include <fcntl.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "platform/clitools/AutoCli.h"

namespace CliTools::AutoCli {

namespace {

/// An open file, closed with its owner.
class File {
 public:
  explicit File(int descriptor = -1) : descriptor_(descriptor) {}
  ~File() { Close(); }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  int Get() const { return descriptor_; }
  void Close() {
    if (descriptor_ >= 0) close(descriptor_);
    descriptor_ = -1;
  }

 private:
  int descriptor_;
};

bool WriteAll(int descriptor, const std::string& text) {
  std::size_t written = 0;
  while (written < text.size()) {
    const ssize_t count = write(descriptor, text.data() + written, text.size() - written);
    if (count < 0 && errno != EINTR) return false;
    if (count > 0) written += static_cast<std::size_t>(count);
  }
  return true;
}

void ReadAll(int descriptor, std::string& text) {
  std::array<char, 4096> buffer;
  ssize_t count = 0;
  do {
    count = read(descriptor, buffer.data(), buffer.size());
    if (count > 0) text.append(buffer.data(), static_cast<std::size_t>(count));
  } while (count > 0 || (count < 0 && errno == EINTR));
}

int WaitFor(pid_t child) {
  int status = 0;
  while (waitpid(child, &status, 0) < 0) {
    if (errno != EINTR) return -1;
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace

int AutoCli_ShellCmd(const std::string& command, std::string& output, const std::string& input) {
  output.clear();
  // A file, not a pipe: a command that never reads its input cannot hold up its caller.
  const File standardInput(memfd_create("input", MFD_CLOEXEC));
  if (standardInput.Get() < 0 || !WriteAll(standardInput.Get(), input) ||
      lseek(standardInput.Get(), 0, SEEK_SET) != 0) {
    return -1;
  }
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return -1;
  const File readEnd(ends[0]);
  File writeEnd(ends[1]);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, standardInput.Get(), STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, writeEnd.Get(), STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, writeEnd.Get(), STDERR_FILENO);
  std::string shell = "/bin/sh";
  std::string option = "-c";
  std::string line = command;
  const std::array<char*, 4> arguments = {shell.data(), option.data(), line.data(), nullptr};
  pid_t child = 0;
  const int failure =
      posix_spawn(&child, shell.c_str(), &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (failure != 0) return -1;
  writeEnd.Close();
  ReadAll(readEnd.Get(), output);
  return WaitFor(child);
}

}  // namespace CliTools::AutoCli
