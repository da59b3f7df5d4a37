#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

class ClusterPreferredFaultDomainSet final : public SuccessCommand<ClusterPreferredFaultDomainSet> {
 public:
  ClusterPreferredFaultDomainSet() {
    DescribeOperation("Set the preferred fault domain for a stretched cluster.");
  }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({
        {"preferred-fault-domain-name", "n", ParameterType::kString, Need::kRequired,
         "Preferred Fault domain name to use for a stretched cluster."},
    });
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    const std::string name = input->GetParameter("preferred-fault-domain-name");
    if (name.empty()) {
      return output->AddErrorMessage("Cannot set preferred fault domain name as empty.");
    }
    try {
      if (DovraUtil::UTF8StringCharLength(name) > kMaxFaultDomainNameLength) {
        output->AddErrorMessage("Preferred Fault domain name cannot exceed " +
                                std::to_string(kMaxFaultDomainNameLength) + " characters.");
      } else if (!DovraUtil::IsWitnessNode()) {
        output->AddErrorMessage(
            "Cannot set preferred fault domain if the host is not a witness node.");
      } else {
        const ControlLibrary library;
        library->SetPreferredFaultDomain(name);
      }
      output->SetRootObject(MetaBool::New(true));  // also after these refusals
    } catch (const DovraCtlException& failure) {
      Report(output, failure, "Unable to set preferred fault domain name: ");
    }
  }
};

template CommandPtr MakeCommand<ClusterPreferredFaultDomainSet>();

}  // namespace OrvaneCli::DovraNamespace
