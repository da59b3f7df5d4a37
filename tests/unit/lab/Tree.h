// A small tree of commands.
#pragma once

#include <memory>

#include "platform/clitools/AutoCli.h"

namespace CliTools {

using namespace CliTools::AutoCli;
using namespace CliTools::CallSpec;
using namespace CliTools::MetaObj;

/// A command of the given parameters and result.
class FakeCommand final : public Command {
 public:
  std::shared_ptr<InputSpec> input = InputSpec::New();
  std::shared_ptr<MetaObject> result = MetaBool::New();

  ParameterSpec& Add(const char* name, const char* letter, ParameterType type, const char* text) {
    input->AddParameter(ParameterSpec::New(name, type));
    ParameterSpec& parameter = *input->GetParameters().back();
    parameter.SetShortName(letter);
    parameter.SetDescription(text);
    return parameter;
  }

 private:
  std::shared_ptr<InputSpec> GetInputSpecInternal() override { return input; }
  std::shared_ptr<OutputSpec> GetOutputSpecInternal() override {
    auto spec = OutputSpec::New();
    spec->SetRootObject(result);
    return spec;
  }
  void ExecuteInternal(const std::shared_ptr<Input>&, const std::shared_ptr<Output>&) override {}
};

/// root: disk: { remove, tag, list }
struct Tree {
  std::shared_ptr<Namespace> root = Namespace::New();
  std::shared_ptr<Namespace> disk = Namespace::New();
  std::shared_ptr<FakeCommand> remove = std::make_shared<FakeCommand>();
  std::shared_ptr<FakeCommand> list = std::make_shared<FakeCommand>();

  Tree() {
    disk->SetDescription("Commands for disks");
    remove->SetDescription("Remove disks, and wait until their data is elsewhere.");
    root->RegisterNamespaceNode(disk, "disk");
    disk->RegisterNamespaceNode(remove, "remove");
    disk->RegisterNamespaceNode(Namespace::New(), "tag");
    disk->RegisterNamespaceNode(list, "list");
  }
};

}  // namespace CliTools
