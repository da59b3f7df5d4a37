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

/// A tree in which the plug-in's entry point has registered its commands.
std::shared_ptr<CliTools::AutoCli::Namespace> Registered(
    std::shared_ptr<CliTools::AutoCli::Namespace> root = CliTools::AutoCli::Namespace::New());

/// All that is below the node, by path, in the order of registration.
using Nodes =
    std::vector<std::pair<std::string, std::shared_ptr<CliTools::AutoCli::NamespaceNode>>>;
Nodes Below(const CliTools::AutoCli::NamespaceNode& node, const std::string& path = "");

/// The command whose path below `dovra` the line begins with, and the words that follow it.
std::pair<CliTools::AutoCli::Command&, std::vector<std::string>> Find(const std::string& line);

/// Runs a command as it is typed behind `dovra`, in words as a shell takes them.
Outcome Run(const std::string& line);
/// Runs one with these parameters, whether they could be typed or not.
Outcome Run(CliTools::AutoCli::Command& command, const Given& given);

/// The host's file, set by the test.
extern std::string traceConfiguration;

}  // namespace Testing
