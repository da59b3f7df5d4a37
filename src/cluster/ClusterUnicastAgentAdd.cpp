#include "cluster/UnicastAgent.h"
#include "frame/Command.h"
#include "frame/Text.h"

namespace OrvaneCli::DovraNamespace {

namespace {

constexpr const char* kWitnessType = "witness";
constexpr const char* kNodeType = "node";

std::string DescribeConfigured(const std::vector<std::string>& witnesses) {
  const char* const configured = witnesses.size() == 1
                                     ? "there is already a unicast witness configured: "
                                     : "there are already multiple unicast witnesses configured: ";
  return std::string("Dovra does not support connecting to more than one unicast witness, and ") +
         configured + Join(witnesses, ",") + ".";
}

}  // namespace

class ClusterUnicastAgentAdd final : public SuccessCommand<ClusterUnicastAgentAdd> {
 public:
  ClusterUnicastAgentAdd() {
    DescribeOperation("Add a unicast agent to the Dovra cluster configuration.");
  }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({
        {"type", "t", ParameterType::kString, Need::kOptional,
         "Type of the unicast agent (One of %ENUM%, default is witness).",
         OneOf({{kWitnessType, ""}, {kNodeType, ""}})},
        {"uuid", "u", ParameterType::kString, Need::kOptional,
         "UUID of the unicast agent (required for -t node)."},
        {"supports-unicast", "U", ParameterType::kBool, Need::kOptional,
         "Whether the software version supports unicast (required for -t node)"},
        AgentAddressParameter(),
        AgentPortParameter(),
        {"bound-interface-name", "i", ParameterType::kString, Need::kOptional,
         "Name of the bound outgoing network interface."},
    });
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    try {
      if (DovraUtil::IsWitnessNode()) {
        return output->AddErrorMessage(
            "This host is a witness node which doesn't support adding unicast agent.");
      }
      const ControlLibrary library;
      const bool isWitness =
          Given<std::string>(input, "type").value_or(kWitnessType) == kWitnessType;
      const auto uuid = Given<std::string>(input, "uuid");
      if (!isWitness && !uuid) {
        return output->AddErrorMessage("Can not add unicastagent without specifying node-uuid");
      }
      const auto supportsUnicast = Given<bool>(input, "supports-unicast");
      if (!isWitness && !supportsUnicast) {
        return output->AddErrorMessage(
            "Can not add unicastagent without specifying unicast support");
      }
      const std::string addressText = input->GetParameter("addr");
      const auto address = ParseAddress(addressText);
      if (!address) return output->AddErrorMessage(InvalidAddressMessage(addressText));
      const std::int32_t port = ReadAgentPort(input);
      const auto interface = Given<std::string>(input, "bound-interface-name");
      if (isWitness) {
        std::vector<std::string> witnesses;
        library->GetUnicastWitnesses(witnesses);
        if (!witnesses.empty()) return output->AddErrorMessage(DescribeConfigured(witnesses));
      }
      library->AddUnicastAgent(uuid.value_or(kNilUuid), isWitness, supportsUnicast.value_or(false),
                               *address, port, interface.has_value(), interface.value_or(""), "");
      if (!isWitness) library->RefreshUnicastAgents();
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure);
    }
  }
};

template CommandPtr MakeCommand<ClusterUnicastAgentAdd>();

}  // namespace OrvaneCli::DovraNamespace
