#include <string>

#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

namespace {

void SetOrReset(const std::string& name) {
  const ControlLibrary library;
  if (name.empty()) {
    library->ResetFaultDomain();
  } else {
    library->SetFaultDomain(name);
  }
}

}  // namespace

class FaultDomainSet final : public SuccessCommand<FaultDomainSet> {
 public:
  FaultDomainSet() { DescribeOperation("Set the fault domain for this host"); }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({
        {"fdname", "n", ParameterType::kString, Need::kRequired,
         "Fault domain name to use for this host. Empty string means reset to default."},
    });
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    const std::string name = input->GetParameter("fdname");
    if (name.size() > kMaxFaultDomainNameLength) {
      // In bytes: the limit is that of the stored text.
      output->AddErrorMessage("Fault domain name cannot exceed " +
                              std::to_string(kMaxFaultDomainNameLength) + " characters.");
    } else {
      try {
        SetOrReset(name);
      } catch (const DovraCtlException& failure) {
        Report(output, failure, "Unable to set fault domain name: ");
      }
    }
    output->SetRootObject(MetaBool::New(true));  // after failures too; the messages tell
  }
};

template CommandPtr MakeCommand<FaultDomainSet>();

}  // namespace OrvaneCli::DovraNamespace
