#include "Run.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

#include "frame/HostPaths.h"
#include "trace/RestartPause.h"

namespace Testing {

using namespace CliTools::MetaObj;

std::string Host::notifyScript = "/bin/true";
std::string Host::traceConfiguration = "/nowhere/dovratraced.conf";
std::string Host::traceInitScript = "/etc/init.d/dovratraced";
int Host::restartPauses = 0;

std::string ToText(const std::shared_ptr<MetaObject>& value) {
  if (!value) return "none";
  std::string text;
  switch (value->GetType()) {
    case MetaType::kBool:
      return static_cast<const MetaBool&>(*value).GetValue() ? "true" : "false";
    case MetaType::kInt:
      return std::to_string(static_cast<const MetaInt&>(*value).GetValue());
    case MetaType::kString:
      return static_cast<const MetaString&>(*value).GetValue();
    case MetaType::kStruct:
      for (const auto& name : static_cast<const MetaStruct&>(*value).GetFieldNames()) {
        text += name + ": " + ToText(static_cast<const MetaStruct&>(*value).GetField(name)) + ", ";
      }
      return "{" + text.substr(0, text.size() - std::min<std::size_t>(text.size(), 2)) + "}";
    case MetaType::kList:
      for (const auto& element : static_cast<const MetaList&>(*value).GetElements()) {
        text += ToText(element) + ", ";
      }
      return "[" + text.substr(0, text.size() - std::min<std::size_t>(text.size(), 2)) + "]";
  }
  return "a value of no known type";
}

std::ostream& operator<<(std::ostream& stream, const Outcome& outcome) {
  stream << "root " << outcome.root;
  for (const auto& error : outcome.errors) stream << ", error \"" << error << "\"";
  return stream;
}

Outcome Run(CliTools::AutoCli::Command& command, const Given& given) {
  const auto input = CliTools::CallSpec::Input::New();
  for (const auto& [name, value] : given) input->SetParameter(name, value);
  const auto output = CliTools::CallSpec::Output::New();
  command.Execute(input, output);
  return {ToText(output->GetRootObject()), output->GetErrorMessages()};
}

CliTools::AutoCli::Command& Find(const std::string& path) {
  static const auto root = [] {
    auto made = CliTools::AutoCli::Namespace::New();
    AutoCli_RegisterNamespaces(made);
    return made;
  }();
  auto node = root->GetNamespaceNode("dovra");
  std::istringstream names(path);
  for (std::string name; names >> name;) {
    node = dynamic_cast<CliTools::AutoCli::CommandSpec&>(*node).GetNamespaceNode(name);
    if (!node) throw std::invalid_argument("there is no command \"" + path + "\"");
  }
  return dynamic_cast<CliTools::AutoCli::Command&>(*node);
}

Outcome Run(const std::string& path, const Given& given) {
  return Run(Find(path), given);
}

}  // namespace Testing

namespace OrvaneCli::DovraNamespace {

namespace HostPaths {
std::string NotifyDatastoreScript() {
  return Testing::Host::notifyScript;
}
std::string TraceConfiguration() {
  return Testing::Host::traceConfiguration;
}
std::string TraceInitScript() {
  return Testing::Host::traceInitScript;
}
}  // namespace HostPaths

void PauseBeforeRestart() {
  ++Testing::Host::restartPauses;
}

}  // namespace OrvaneCli::DovraNamespace
