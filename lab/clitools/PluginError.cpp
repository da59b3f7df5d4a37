#include "clitools/PluginError.h"

#include <dlfcn.h>

#include <algorithm>
#include <typeinfo>
#include <vector>

#include "clitools/Display.h"
#include "clitools/Nodes.h"

namespace CliTools {

using AutoCli::Command;
using AutoCli::NamespaceNode;
using MetaObj::MetaList;
using MetaObj::MetaObject;
using MetaObj::MetaStruct;
using MetaObj::MetaType;

namespace {

/// Returns the library that defines the node's class.
std::string FileOf(const NamespaceNode& node) {
  Dl_info info;
  const bool known = dladdr(typeid(node).name(), &info) != 0 && info.dli_fname != nullptr;
  return known ? info.dli_fname : "unknown";
}

/// Returns what `question` returns. Throws `PluginError` for anything that it throws.
template <class Question>
auto Ask(const Command& command, Question&& question) {
  try {
    return question();
  } catch (...) {
    throw ThrownBy(command);
  }
}

/// Returns why the value cannot be shown; null if it can. `above` are the values that contain it.
const char* FaultOf(const MetaObject& value, std::vector<const MetaObject*>& above) {
  const bool isList = value.GetType() == MetaType::kList;
  if (!isList && value.GetType() != MetaType::kStruct) return nullptr;
  if (std::ranges::find(above, &value) != above.end()) return "a value that contains itself";
  const char* fault = nullptr;
  above.push_back(&value);
  if (isList) {
    const auto& list = static_cast<const MetaList&>(value);
    if (list.GetElementTemplate()) fault = FaultOf(*list.GetElementTemplate(), above);
    for (const auto& element : list.GetElements()) {
      if (fault != nullptr) break;
      const bool fits = element != nullptr && element->GetType() == list.GetElementType();
      fault = fits ? FaultOf(*element, above) : "a list with an element of another type";
    }
  } else {
    for (const auto& field : static_cast<const MetaStruct&>(value).GetValues()) {
      if (fault != nullptr) break;
      fault = field == nullptr ? "a field without a value" : FaultOf(*field, above);
    }
  }
  above.pop_back();
  return fault;
}

}  // namespace

PluginError::PluginError(const NamespaceNode& node, const std::string& fault)
    : HostError("the plug-in " + Quote(FileOf(node)) + " is broken: " + Quote(PathOf(node)) + ' ' +
                fault) {}

PluginError ThrownBy(const Command& command) {
  try {
    throw;
  } catch (const std::exception& error) {
    return {command, "threw " + Quote(error.what())};
  } catch (...) {
    return {command, "threw an object that is not a std::exception"};
  }
}

std::shared_ptr<CallSpec::InputSpec> InputOf(Command& command) {
  auto input = Ask(command, [&command] { return command.GetInputSpec(); });
  if (input == nullptr || std::ranges::count(input->GetParameters(), nullptr) > 0) {
    throw PluginError(command, "does not declare its parameters");
  }
  return input;
}

std::shared_ptr<MetaObject> ShapeOf(Command& command) {
  const auto output = Ask(command, [&command] { return command.GetOutputSpec(); });
  if (output == nullptr) throw PluginError(command, "does not declare its result");
  if (output->GetRootObject() != nullptr) CheckResult(command, *output->GetRootObject());
  return output->GetRootObject();
}

void CheckResult(const Command& command, const MetaObject& result) {
  std::vector<const MetaObject*> above;
  const char* const fault = FaultOf(result, above);
  if (fault != nullptr) throw PluginError(command, std::string("returns ") + fault);
}

}  // namespace CliTools
