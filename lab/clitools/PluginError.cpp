#include "clitools/PluginError.h"

#include <dlfcn.h>

#include <algorithm>
#include <typeinfo>
#include <vector>

#include "clitools/Display.h"
#include "clitools/Help.h"

namespace CliTools {

using AutoCli::Command;
using MetaObj::MetaList;
using MetaObj::MetaObject;
using MetaObj::MetaStruct;
using MetaObj::MetaType;

namespace {

/// The library that the command's class comes from.
std::string FileOf(const Command& command) {
  Dl_info info;
  const bool known = dladdr(typeid(command).name(), &info) != 0 && info.dli_fname != nullptr;
  return known ? info.dli_fname : "unknown";
}

/// Why the value cannot be shown; null if it can. `above` are the values that hold it.
const char* FaultOf(const MetaObject& value, std::vector<const MetaObject*>& above) {
  const bool isList = value.GetType() == MetaType::kList;
  if (!isList && value.GetType() != MetaType::kStruct) return nullptr;
  if (std::ranges::find(above, &value) != above.end()) return "contains itself";
  const char* fault = nullptr;
  above.push_back(&value);
  if (isList) {
    const auto& list = static_cast<const MetaList&>(value);
    for (const auto& element : list.GetElements()) {
      const bool fits = element != nullptr && element->GetType() == list.GetElementType();
      fault =
          fits ? FaultOf(*element, above) : "has a list with an element that is none of its type";
      if (fault != nullptr) break;
    }
  } else {
    for (const auto& field : static_cast<const MetaStruct&>(value).GetValues()) {
      if (field != nullptr) fault = FaultOf(*field, above);
      if (fault != nullptr) break;
    }
  }
  above.pop_back();
  return fault;
}

}  // namespace

PluginError::PluginError(const Command& command, const std::string& fault)
    : std::runtime_error("the plug-in " + Quote(FileOf(command)) +
                         " is broken: " + Quote(PathOf(command)) + ' ' + fault) {}

std::shared_ptr<CallSpec::InputSpec> InputOf(Command& command) {
  auto input = command.GetInputSpec();
  if (input == nullptr || std::ranges::count(input->GetParameters(), nullptr) > 0) {
    throw PluginError(command, "does not say what it takes");
  }
  return input;
}

std::shared_ptr<MetaObject> ShapeOf(Command& command) {
  const auto output = command.GetOutputSpec();
  if (output == nullptr) throw PluginError(command, "does not say what it returns");
  if (output->GetRootObject() != nullptr) CheckResult(command, *output->GetRootObject());
  return output->GetRootObject();
}

void CheckResult(const Command& command, const MetaObject& result) {
  std::vector<const MetaObject*> above;
  const char* const fault = FaultOf(result, above);
  if (fault != nullptr) throw PluginError(command, std::string("returns what ") + fault);
}

}  // namespace CliTools
