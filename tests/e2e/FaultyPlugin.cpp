// A plug-in with a command, `break`, that throws what no command may, and what else the variable
// FAULT asks for.
#include "baselibs/Environment.h"
#include "corectl/Hosts.h"
#include "corectl/LabHost.h"
#include "frame/Frame.h"

namespace {

using namespace OrvaneCli::DovraNamespace;

class Break final : public SuccessCommand<Break> {
 public:
  Break() { DescribeOperation("Break off in the middle of a change."); }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({{"with", "w", ParameterType::kString, Need::kRequired, "%ENUM%",
                           OneOf({{"error", ""}, {"refusal", ""}, {"number", ""}})}});
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    output->SetRootObject(MetaBool::New(true));
    Lab::LabHost::Current().Change([&](Lab::Store& store, Lab::HostRow& host) {
      host.faultDomain = "half done";
      store.Save(host);
      Lab::AddHost(store, "half-done");
      const std::string what = input->GetParameter("with");
      if (what == "error") throw std::runtime_error("an error\nof its own");
      if (what == "refusal") throw DovraCtlException("a refusal");
      throw 7;
    });
  }
};

std::string Fault() {
  return BaseLibs::Environment("FAULT");
}

class Odd final : public CliTools::AutoCli::Command {
  InputSpecPtr GetInputSpecInternal() override {
    if (Fault() == "no input") return nullptr;
    auto spec = MakeInputSpec({});
    if (Fault() == "no parameter") spec->AddParameter(nullptr);
    return spec;
  }

  OutputSpecPtr GetOutputSpecInternal() override {
    return Fault() == "no output" ? nullptr : MakeOutputSpec(nullptr);
  }

  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    static const auto record = MetaStruct::New("Odd");  // lasting, as nobody else could release it
    if (Fault() == "part of itself") record->SetField("Itself", record);
    const auto list = MetaList::New(MetaType::kStruct);
    if (Fault() == "text among records") list->Add("text");
    if (Fault() == "no record") list->Add(StructPtr());
    list->Add(record);
    output->SetRootObject(list);
  }
};

}  // namespace

extern "C" void AutoCli_RegisterNamespaces(
    const std::shared_ptr<CliTools::AutoCli::Namespace>& root) {
  using CliTools::AutoCli::Namespace;
  root->RegisterNamespaceNode(Break::New(), "break");
  const std::string fault = Fault();
  if (fault == "throws") throw std::runtime_error("no licence");
  if (fault == "many") {
    for (int number = 0; number < 10000; ++number) {
      root->RegisterNamespaceNode(Namespace::New(), "name" + std::to_string(number));
    }
  }
  // Lasting, as nobody else could release what holds itself.
  static const auto space = Namespace::New();
  static const auto inner = Namespace::New();
  if (fault == "no node") root->RegisterNamespaceNode(nullptr, "odd");
  if (fault == "below itself") space->RegisterNamespaceNode(space, "odd");
  if (fault == "above its parent") {
    space->RegisterNamespaceNode(inner, "inner");
    inner->RegisterNamespaceNode(space, "odd");
  }
  if (!fault.empty()) root->RegisterNamespaceNode(std::make_shared<Odd>(), "odd");
}
