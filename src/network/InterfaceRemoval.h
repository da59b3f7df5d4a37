#pragma once

#include "frame/Frame.h"

namespace OrvaneCli::DovraNamespace {

/// Base of `remove` and `ip remove`, which differ only in their descriptions.
template <class T>
class InterfaceRemoval : public SuccessCommand<T> {
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({
        {"interface-name", "i", ParameterType::kString, Need::kRequired, "Interface name."},
        {"force", "f", ParameterType::kFlag, Need::kOptional,
         "Notify Dovra subsystem of removal, even if not configured."},
    });
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    try {
      const ControlLibrary library;
      const std::string name = input->GetParameter("interface-name");
      const bool force = input->IsFlagSet("force");
      library->RemoveKnic(name, force, kDovraTraffic);
      library->RemoveKnic(name, force, kWitnessTraffic);
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure);
      output->SetRootObject(MetaBool::New(false));
    }
  }
};

}  // namespace OrvaneCli::DovraNamespace
