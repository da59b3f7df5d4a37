#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

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
    try {
      if (name.size() > kMaxFaultDomainNameLength) {  // in bytes: the limit is on the stored form
        output->AddErrorMessage("Fault domain name cannot exceed " +
                                std::to_string(kMaxFaultDomainNameLength) + " characters.");
      } else if (const ControlLibrary library; name.empty()) {
        library->ResetFaultDomain();
      } else {
        library->SetFaultDomain(name);
      }
    } catch (const DovraCtlException& failure) {
      Report(output, failure, "Unable to set fault domain name: ");
    }
    output->SetRootObject(MetaBool::New(true));  // also after failures
  }
};

template CommandPtr MakeCommand<FaultDomainSet>();

}  // namespace OrvaneCli::DovraNamespace
