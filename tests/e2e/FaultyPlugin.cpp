// A plug-in with one command, `break`, that throws what no command may.
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

}  // namespace

extern "C" void AutoCli_RegisterNamespaces(
    const std::shared_ptr<CliTools::AutoCli::Namespace>& root) {
  root->RegisterNamespaceNode(Break::New(), "break");
}
