#include "cluster/ClusterMessages.h"
#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

namespace {

bool IsFaultDomainName(const std::string& text) {
  return !text.empty() && DovraUtil::UTF8StringCharLength(text) <= kMaxFaultDomainNameLength;
}

}  // namespace

class ClusterJoin final : public SuccessCommand<ClusterJoin> {
 public:
  ClusterJoin() { DescribeOperation("Join the host to a Dovra cluster."); }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({
        {"cluster-uuid", "u", ParameterType::kString, Need::kRequired,
         "Dovra cluster UUID of the cluster instance which the host will join, or create, in the "
         "form \"nnnnnnnn-nnnn-nnnn-nnnn-nnnnnnnnnnnn\" where n are hexadecimal digits."},
        {"wait", "w", ParameterType::kFlag, Need::kOptional,
         "Wait until the host joins the cluster."},
        {"witness-node", "t", ParameterType::kFlag, Need::kOptional,
         "Join the host as a witness node to the cluster. It is required to specify "
         "\"--witness-preferred-fault-domain\" when this parameter is set."},
        {"witness-preferred-fault-domain", "p", ParameterType::kString, Need::kOptional,
         "Specify the fault domain that witness node prefers to respond in case of network "
         "partition. It should be either of the two fault domains for existing data sites. This "
         "parameter is useful only when \"--witness-node\" is set."},
    });
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    const std::string clusterUuid = input->GetParameter("cluster-uuid");
    const bool asWitness = input->IsFlagSet("witness-node");
    const auto faultDomain = Given<std::string>(input, "witness-preferred-fault-domain");
    const bool wait = input->IsFlagSet("wait");
    try {
      const ControlLibrary library;
      if (library->GetClusterConfig().enabled) {
        return output->AddErrorMessage(kAlreadyInClusterMessage);
      }
      if (asWitness && !faultDomain) {
        return output->AddErrorMessage(
            "If --witness-node is specified, --witness-preferred-fault-domain must also be "
            "specified.");
      }
      if (asWitness && !IsFaultDomainName(*faultDomain)) {
        return output->AddErrorMessage("Preferred fault domain name cannot be empty or exceed " +
                                       std::to_string(kMaxFaultDomainNameLength) + " characters.");
      }
      if (!asWitness && faultDomain) {
        return output->AddErrorMessage(
            "--witness-preferred-fault-domain is valid only when --witness-node is specified.");
      }
      library->JoinCluster(DovraUtil::StringToDovraUuid(clusterUuid), asWitness,
                           faultDomain.value_or(""), wait, false);
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure);
      output->SetRootObject(MetaBool::New(false));
    }
  }
};

template CommandPtr MakeCommand<ClusterJoin>();

}  // namespace OrvaneCli::DovraNamespace
