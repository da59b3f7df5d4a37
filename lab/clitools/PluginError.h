// Checks of what plug-ins declare and return.
#pragma once

#include <memory>
#include <string>

#include "baselibs/HostError.h"
#include "platform/clitools/AutoCli.h"

namespace CliTools {

/// A plug-in breaks the framework's contract. `what()` names the node and the plug-in's file.
class [[gnu::visibility("default")]] PluginError : public BaseLibs::HostError {
 public:
  PluginError(const AutoCli::NamespaceNode& node, const std::string& fault);
};

/// Returns a `PluginError` for the exception being handled, which `command` threw.
PluginError ThrownBy(const AutoCli::Command& command);

/// Returns the command's parameters. Throws `PluginError` when it declares none, or a null one.
std::shared_ptr<CallSpec::InputSpec> InputOf(AutoCli::Command& command);

/// Returns an empty value of the shape of the command's result; null if it has no result. Throws
/// `PluginError` when the command declares no output, or a shape that `CheckResult` rejects.
std::shared_ptr<MetaObj::MetaObject> ShapeOf(AutoCli::Command& command);

/// Throws `PluginError` when the command's result cannot be shown: it has a field without a value,
/// a list with an element of another type than the list's, or a value that contains itself.
void CheckResult(const AutoCli::Command& command, const MetaObj::MetaObject& result);

}  // namespace CliTools
