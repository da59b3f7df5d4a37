// autocli: runs the plug-ins' commands on a stand-in host.

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

}  // namespace

}  // namespace AutoCliProgram

int main(int argc, char** argv) {
  using namespace AutoCliProgram;
  return Guard("", [&] { return Run({argv + 1, argv + argc}); });
}
