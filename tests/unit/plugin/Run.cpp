#include "Run.h"

#include <stdexcept>

#include "baselibs/Strings.h"
#include "clitools/CommandLine.h"
#include "clitools/Words.h"
#include "frame/HostFile.h"

namespace Testing {

using namespace CliTools::AutoCli;
using namespace CliTools::MetaObj;

std::string traceConfiguration = "/nowhere/dovratraced.conf";

std::string ToText(const std::shared_ptr<MetaObject>& value) {
  const MetaObject* const any = value.get();
  if (const auto* truth = dynamic_cast<const MetaBool*>(any)) {
    return truth->GetValue() ? "true" : "false";
  }
  if (const auto* number = dynamic_cast<const MetaInt*>(any)) {
    return std::to_string(number->GetValue());
  }
  if (const auto* text = dynamic_cast<const MetaString*>(any)) return text->GetValue();
  std::vector<std::string> texts;
  if (const auto* record = dynamic_cast<const MetaStruct*>(any)) {
    for (const auto& name : record->GetFieldNames()) {
      texts.push_back(name + ": " + ToText(record->GetField(name)));
    }
    return "{" + BaseLibs::Join(texts, ", ") + "}";
  }
  if (!value) return "none";
  for (const auto& element : dynamic_cast<const MetaList&>(*any).GetElements()) {
    texts.push_back(ToText(element));
  }
  return "[" + BaseLibs::Join(texts, ", ") + "]";
}

std::ostream& operator<<(std::ostream& stream, const Outcome& outcome) {
  stream << "root " << outcome.root;
  for (const auto& error : outcome.errors) stream << ", error \"" << error << "\"";
  return stream;
}

std::shared_ptr<Namespace> Registered(std::shared_ptr<Namespace> root) {
  AutoCli_RegisterNamespaces(root);
  return root;
}

Nodes Below(const NamespaceNode& node, const std::string& path) {
  Nodes nodes;
  for (const auto& child : dynamic_cast<const CommandSpec&>(node).GetChildren()) {
    nodes.emplace_back(path + child->GetName(), child);
    const Nodes inner = Below(*child, nodes.back().first + ' ');
    nodes.insert(nodes.end(), inner.begin(), inner.end());
  }
  return nodes;
}

std::pair<Command&, std::vector<std::string>> Find(const std::string& line) {
  static const auto root = Registered();
  auto node = root->GetNamespaceNode("dovra");
  std::vector<std::string> words = CliTools::SplitWords(line);
  auto word = words.begin();
  while (const auto space = std::dynamic_pointer_cast<Namespace>(node)) {
    node = space->GetNamespaceNode(word == words.end() ? "" : *word++);
  }
  if (!node) throw std::invalid_argument("no command begins \"" + line + "\"");
  return {dynamic_cast<Command&>(*node), {word, words.end()}};
}

namespace {

Outcome Execute(Command& command, const std::shared_ptr<CliTools::CallSpec::Input>& input) {
  const auto output = CliTools::CallSpec::Output::New();
  command.Execute(input, output);
  return {ToText(output->GetRootObject()), output->GetErrorMessages()};
}

}  // namespace

Outcome Run(const std::string& line) {
  const auto& [command, words] = Find(line);
  return Execute(command, CliTools::ParseParameters(*command.GetInputSpec(), words));
}

Outcome Run(Command& command, const Given& given) {
  const auto input = CliTools::CallSpec::Input::New();
  for (const auto& [name, value] : given) input->SetParameter(name, value);
  return Execute(command, input);
}

}  // namespace Testing

std::string OrvaneCli::DovraNamespace::HostFile(const char* path) {
  const bool isConfiguration = path == std::string("/etc/orvane/dovra/dovratraced.conf");
  return isConfiguration ? Testing::traceConfiguration : std::string("/the host's") + path;
}
