// Runs one command as the framework does and holds what it left.
#pragma once

#include <initializer_list>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "RecordingLibrary.h"
#include "platform/clitools/AutoCli.h"

namespace Testing {

/// The parameters of a call: name and value; a flag is given as true.
using Given = std::vector<std::pair<std::string, CliTools::CallSpec::Input::Value>>;

/// What a call left. `root` is the result in a compact form: "none" if there is none, "true",
/// "[a, b]", "{Field: value, Other: value}".
struct Outcome {
  std::string root;
  std::vector<std::string> errors;
  bool operator==(const Outcome&) const = default;
};
std::ostream& operator<<(std::ostream& stream, const Outcome& outcome);

std::string ToText(const std::shared_ptr<CliTools::MetaObj::MetaObject>& value);

Outcome Run(CliTools::AutoCli::Command& command, const Given& given = {});

/// The command of the plug-in's tree with this path below `dovra`.
CliTools::AutoCli::Command& Find(const std::string& path);
Outcome Run(const std::string& path, const Given& given = {});

/// The files of the host under test, set by the test; and what was asked of the host beside the
/// control library.
struct Host {
  static std::string notifyScript;
  static std::string traceConfiguration;
  static std::string traceInitScript;
  static int restartPauses;
};

}  // namespace Testing
