#include <string>
#include <vector>

#include "cluster/ClusterCommands.h"
#include "cluster/UnicastAgent.h"
#include "frame/Constants.h"
#include "frame/ControlLibrary.h"
#include "frame/Text.h"
#include "platform/corectl/DovraUtil.h"

namespace OrvaneCli::DovraNamespace {

using CoreCtl::Dovra::DovraUtil;

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

ClusterUnicastAgentAdd::ClusterUnicastAgentAdd() {
  DescribeOperation("Add a unicast agent to the Dovra cluster configuration.");
}

InputSpecPtr ClusterUnicastAgentAdd::GetInputSpecInternal() {
  return MakeInputSpec({
      {"type", "t", ParameterType::kString, Need::kOptional,
       "Type of the unicast agent (One of %ENUM%, default is witness).",
       OneOf({{kWitnessType, ""}, {kNodeType, ""}})},
      {"uuid", "u", ParameterType::kString, Need::kOptional,
       "UUID of the unicast agent (required for -t node)."},
      {"supports-unicast", "U", ParameterType::kBool, Need::kOptional,
       "Whether the software version supports unicast (required for -t node)"},
      kAgentAddressParameter,
      kAgentPortParameter,
      {"bound-interface-name", "i", ParameterType::kString, Need::kOptional,
       "Name of the bound outgoing network interface."},
  });
}

void ClusterUnicastAgentAdd::ExecuteInternal(const InputPtr& input, const OutputPtr& output) {
  try {
    if (DovraUtil::IsWitnessNode()) {
      output->AddErrorMessage(
          "This host is a witness node which doesn't support adding unicast agent.");
      return;
    }
    const ControlLibrary library;
    const bool isWitness =
        !input->HasParameter("type") || input->GetParameter("type") == kWitnessType;
    const bool hasUuid = input->HasParameter("uuid");
    if (!isWitness && !hasUuid) {
      output->AddErrorMessage("Can not add unicastagent without specifying node-uuid");
      return;
    }
    if (!isWitness && !input->HasParameter("supports-unicast")) {
      output->AddErrorMessage("Can not add unicastagent without specifying unicast support");
      return;
    }
    const std::string addressText = input->GetParameter("addr");
    const auto address = ParseAddress(addressText);
    if (!address) {
      output->AddErrorMessage(InvalidAddressMessage(addressText));
      return;
    }
    if (isWitness) {
      std::vector<std::string> witnesses;
      library->GetUnicastWitnesses(witnesses);
      if (!witnesses.empty()) {
        output->AddErrorMessage(DescribeConfigured(witnesses));
        return;
      }
    }
    library->AddUnicastAgent(hasUuid ? input->GetParameter("uuid") : kNilUuid, isWitness,
                             input->GetParameterBool("supports-unicast"), *address,
                             ReadAgentPort(input), input->HasParameter("bound-interface-name"),
                             input->GetParameter("bound-interface-name"), "");
    if (!isWitness) library->RefreshUnicastAgents();
    output->SetRootObject(MetaBool::New(true));
  } catch (const DovraCtlException& failure) {
    Report(output, "", failure);
  }
}

}  // namespace OrvaneCli::DovraNamespace
