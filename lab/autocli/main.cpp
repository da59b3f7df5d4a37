// autocli: runs the plug-ins' commands on a stand-in host.

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "autocli/CommandTree.h"
#include "autocli/Completion.h"
#include "autocli/Options.h"
#include "autocli/Run.h"

namespace AutoCliProgram {

namespace {

ExitStatus Run(const std::vector<std::string>& arguments) {
  if (IsCompletionRequest(arguments)) {
    CompleteLine(arguments.back());
    return kSuccess;
  }
  const Options options = ReadOptions(arguments, OptionsFromEnvironment());
  CommandTree tree(PluginFolder(options));
  return RunLine(tree, options);
}

/// Where a standard stream is closed, the next file that is opened, such as the lab's store, would
/// take its place and get what is meant for it. One that can only be used the wrong way round fails
/// as a closed one does.
void KeepStandardStreams() {
  for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
    if (fcntl(descriptor, F_GETFD) >= 0) continue;
    open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
}

}  // namespace

}  // namespace AutoCliProgram

int main(int argc, char** argv) {
  using namespace AutoCliProgram;
  KeepStandardStreams();
  signal(SIGPIPE, SIG_IGN);  // a result that nobody reads is reported as one that was lost
  return Guard("", [&] { return Run({argv + 1, argv + argc}); });
}
