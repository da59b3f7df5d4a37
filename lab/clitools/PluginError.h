// What plug-ins may do wrong where the compiler cannot see it.
#pragma once

#include <memory>
#include <string>

#include "baselibs/HostError.h"
#include "platform/clitools/AutoCli.h"

namespace CliTools {

/// A node of the tree is not one that the framework can work with. `what()` names it, and the file
/// of the plug-in that brought it.
class [[gnu::visibility("default")]] PluginError : public BaseLibs::HostError {
 public:
  PluginError(const AutoCli::NamespaceNode& node, const std::string& fault);
};

/// Returns the exception that is being handled, which `command` threw, as a fault of its plug-in.
PluginError ThrownBy(const AutoCli::Command& command);

/// What the command takes. Throws `PluginError` when it does not say.
std::shared_ptr<CallSpec::InputSpec> InputOf(AutoCli::Command& command);

/// An empty value of the shape of the command's result; null if it has none. Throws `PluginError`
/// when it does not say, or no value has that shape.
std::shared_ptr<MetaObj::MetaObject> ShapeOf(AutoCli::Command& command);

/// Throws `PluginError` when what the command left cannot be shown: a list with an element of
/// another type than its own, a value that contains itself.
void CheckResult(const AutoCli::Command& command, const MetaObj::MetaObject& result);

}  // namespace CliTools
