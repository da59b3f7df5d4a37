#include "autocli/Program.h"

#include <exception>

#include "autocli/Terminal.h"
#include "baselibs/Environment.h"
#include "baselibs/HostError.h"
#include "clitools/UsageError.h"
#include "corectl/session/Session.h"

namespace AutoCliProgram {

namespace fs = std::filesystem;
using BaseLibs::Environment;
using BaseLibs::HostError;

namespace {

fs::path DefaultLab() {
  std::string state = Environment("XDG_STATE_HOME");
  if (!state.starts_with('/')) {
    const std::string home = Environment("HOME");
    if (home.empty()) {
      throw HostError("there is no directory for the lab: name one with --lab or AUTOCLI_LAB");
    }
    state = home + "/.local/state";
  }
  return state + "/autocli/lab";
}

}  // namespace

const fs::path& Prefix() {
  static const fs::path prefix = fs::read_symlink("/proc/self/exe").parent_path().parent_path();
  return prefix;
}

fs::path PluginDirectory(const Options& options) {
  const std::string& given = options.pluginDirectory;
  return given.empty() ? Prefix() / "lib/autocli/plugins" : fs::path(given);
}

void SelectLab(const Options& options) {
  const bool namesHost = !options.host.empty();
  Lab::Select({options.lab.empty() ? DefaultLab() : fs::path(options.lab),
               namesHost ? options.host : options.defaultHost, Prefix() / "share/autocli/hostroot",
               namesHost});
}

ExitStatus Guard(const std::string& location, const std::function<ExitStatus()>& work) {
  const auto print = [&location](const std::string& message) {
    PrintError("autocli: " + location + message);
  };
  try {
    return work();
  } catch (const CliTools::UsageError& error) {
    print(error.what());
    return kWrongUse;
  } catch (const OutputError& error) {
    print(error.what());
    return kResultLost;
  } catch (const HostError& error) {
    print(error.what());
  } catch (const std::exception& error) {
    print(std::string("internal error: ") + error.what());
  }
  return kHostUnusable;
}

}  // namespace AutoCliProgram
