#include "baselibs/Process.h"
#include "platform/clitools/AutoCli.h"

namespace CliTools::AutoCli {

int AutoCli_ShellCmd(const std::string& command, std::string& output, const std::string& input) {
  BaseLibs::Outcome outcome = BaseLibs::RunProgram({"/bin/sh", "-c", command}, input);
  output = std::move(outcome.output);
  return outcome.status;
}

}  // namespace CliTools::AutoCli
