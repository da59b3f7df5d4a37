#include <string>

#include "frame/Constants.h"
#include "frame/ControlLibrary.h"
#include "network/NetworkCommands.h"

namespace OrvaneCli::DovraNamespace {

NetworkRemove::NetworkRemove() {
  DescribeOperation("Remove an interface from the Dovra network configuration.");
}

InputSpecPtr NetworkRemove::GetInputSpecCommon() {
  return MakeInputSpec({
      {"interface-name", "i", ParameterType::kString, Need::kRequired, "Interface name."},
      {"force", "f", ParameterType::kFlag, Need::kOptional,
       "Notify Dovra subsystem of removal, even if not configured."},
  });
}

void NetworkRemove::ExecuteCommon(const InputPtr& input, const OutputPtr& output) {
  SucceedOrFalse(output, "", [&] {
    const ControlLibrary library;
    const std::string name = input->GetParameter("interface-name");
    const bool force = input->IsFlagSet("force");
    library->RemoveKnic(name, force, kDovraTraffic);
    library->RemoveKnic(name, force, kWitnessTraffic);
  });
}

InputSpecPtr NetworkRemove::GetInputSpecInternal() {
  return GetInputSpecCommon();
}

void NetworkRemove::ExecuteInternal(const InputPtr& input, const OutputPtr& output) {
  ExecuteCommon(input, output);
}

}  // namespace OrvaneCli::DovraNamespace
