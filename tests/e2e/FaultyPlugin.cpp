// A plug-in whose command, `odd`, breaks the rule for plug-ins that the variable FAULT names.
#include <dlfcn.h>

#include "baselibs/Environment.h"
#include "corectl/rules/Hosts.h"
#include "corectl/session/Session.h"
#include "frame/Frame.h"

namespace {

using namespace OrvaneCli::DovraNamespace;
using namespace std::string_literals;
using CliTools::AutoCli::Namespace;

std::string Fault() {
  return BaseLibs::Environment("FAULT");
}

/// Begins a change of the lab, and throws.
void BreakOff() {
  Lab::Session::Current().Change([&](Lab::Store& store, Lab::HostRow& host) {
    host.faultDomain = "half done";
    store.Save(host);
    Lab::AddHost(store, "half-done", Lab::Selected().hostFiles);
    if (Fault() == "throws an error") throw std::runtime_error("an error\nof its own");
    if (Fault() == "throws, reading what is missing")
      CliTools::CallSpec::Input().GetParameterInt("x");
    throw DovraCtlException("a refusal");
  });
}

class Odd final : public CliTools::AutoCli::Command {
  InputSpecPtr GetInputSpecInternal() override {
    if (Fault() == "no input") return nullptr;
    if (Fault() == "input throws") throw 7;
    auto spec = MakeInputSpec({});
    if (Fault() == "no parameter") spec->AddParameter(nullptr);
    return spec;
  }

  OutputSpecPtr GetOutputSpecInternal() override {
    if (Fault() == "no output") return nullptr;
    const auto pattern = MetaStruct::New("Odd");
    if (Fault() == "no value in the pattern") pattern->SetField("Field", StructPtr());
    return MakeOutputSpec(MetaList::New(MetaType::kStruct, pattern));
  }

  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    if (Fault().starts_with("throws")) BreakOff();
    static const auto record = MetaStruct::New("Odd");  // static, since it may hold itself
    if (Fault() == "part of itself") record->SetField("Itself", record);
    if (Fault() == "no value") record->SetField("Field", StructPtr());
    const auto list = MetaList::New(MetaType::kStruct);
    if (Fault() == "text among records") list->Add("text");
    if (Fault() == "no record") list->Add(StructPtr());
    list->Add(record);
    output->SetRootObject(list);
  }
};

/// Escape sequences of seven and of eight bits, a carriage return, and a byte that is not UTF-8.
constexpr const char* kRaw = "odd\x1b[2J\u009b2J\r\xff";

/// Declares and returns nothing but such strings.
class Raw final : public ListCommand<Raw> {
 public:
  static inline const Record kRecord = {
      kRaw, {{kRaw, MetaType::kString, kRaw}}, "table", kRaw, ","};

  Raw() {
    SetDescription(kRaw);
    SetMetaDataField("examples", "# "s + kRaw + "\n" + kRaw);
  }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec(
        {{kRaw, "\x1b", ParameterType::kString, Need::kOptional, kRaw, OneOf({{kRaw, kRaw}})}});
  }

  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    const auto record = GetOutputStructure();
    record->SetField(kRaw, kRaw);
    const auto list = MakeList();
    for (int i = 0; i < 2; ++i) list->Add(record);
    output->SetRootObject(list);
    output->AddErrorMessage(kRaw);
  }
};

/// A namespace that has a child before it can be a parent.
struct EarlyParent final : Namespace {
  explicit EarlyParent(const std::shared_ptr<Namespace>& child) {
    RegisterNamespaceNode(child, "inner");
  }
};

void CloseMyself() {
  Dl_info info;
  dladdr(reinterpret_cast<const void*>(&CloseMyself), &info);
  void* const handle = dlopen(info.dli_fname, RTLD_NOW | RTLD_NOLOAD);
  dlclose(handle);
  dlclose(handle);
}

struct BareNode final : CliTools::AutoCli::NamespaceNode {};

}  // namespace

extern "C" void AutoCli_RegisterNamespaces(const std::shared_ptr<Namespace>& root) {
  const std::string fault = Fault();
  if (fault == "has no licence") throw std::runtime_error("no licence");
  if (fault == "throws a number at once") throw 7;
  if (fault == "closes itself") CloseMyself();
  if (fault == "raw strings") {
    const auto space = Namespace::New();
    space->SetDescription(kRaw);
    space->RegisterNamespaceNode(std::make_shared<Raw>(), kRaw);
    root->RegisterNamespaceNode(space, kRaw);
    return;
  }
  // Static, since they may hold themselves.
  static const auto space = Namespace::New();
  static const auto inner = Namespace::New();
  if (fault == "early parent") std::make_shared<EarlyParent>(inner);
  space->RegisterNamespaceNode(inner, "inner");
  if (fault == "no node") root->RegisterNamespaceNode(nullptr, "odd");
  if (fault == "above its parent") inner->RegisterNamespaceNode(space, "odd");
  if (fault == "two parents") root->RegisterNamespaceNode(inner, "odd");
  if (fault == "bare node") return root->RegisterNamespaceNode(std::make_shared<BareNode>(), "odd");
  root->RegisterNamespaceNode(std::make_shared<Odd>(), "odd");
}
