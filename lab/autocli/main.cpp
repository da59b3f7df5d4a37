// autocli: runs the plug-ins' commands on a stand-in host.

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "autocli/Batch.h"
#include "autocli/CommandTree.h"
#include "autocli/Completion.h"
#include "autocli/Manual.h"
#include "autocli/Options.h"
#include "autocli/Program.h"
#include "autocli/Run.h"
#include "autocli/Terminal.h"
#include "clitools/UsageError.h"

namespace AutoCliProgram {

namespace {

ExitStatus RunLine(CommandTree& tree, const Options& options) {
  if (!options.words.empty() || options.help) return RunCommandLine(tree, options);
  if (!options.fault.empty()) throw CliTools::UsageError(options.fault);
  const std::string task = TaskOf(options);
  if (task.empty()) return RunCommandLine(tree, options);
  if (task == "--batch") {
    return RunBatch(options, [&tree](const Options& line) { return RunLine(tree, line); });
  }
  Print(task == "--version"      ? "autocli " DOVRA_BUILD "\n"
        : task == "--list"       ? CommandList(tree, options)
        : task == "--completion" ? ReadCompletionScript(options.completion)
                                 : Reference(*tree.GetWhole()));
  return kSuccess;
}

ExitStatus Run(const std::vector<std::string>& arguments) {
  if (arguments.size() == 2 && arguments.front() == "--complete") {  // from a completion script
    CompleteLine(arguments.back());
    return kSuccess;
  }
  const Options options = ReadOptions(arguments, OptionsFromEnvironment());
  CommandTree tree(PluginDirectory(options));
  return RunLine(tree, options);
}

/// Opens the standard streams that are closed: otherwise the next file to be opened, such as the
/// lab's store, would become standard output. Each is opened in the wrong direction, so that using
/// it still fails.
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
  signal(SIGPIPE, SIG_IGN);  // writing to a closed pipe fails, and is reported
  return Guard("", [&] { return Run({argv + 1, argv + argc}); });
}
