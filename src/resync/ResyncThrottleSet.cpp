#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

class ResyncThrottleSet final : public SuccessCommand<ResyncThrottleSet> {
 public:
  ResyncThrottleSet() { DescribeOperation("Configure Dovra resync throttling"); }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({
        {"level", nullptr, ParameterType::kInt, Need::kRequired,
         "Set Dovra resync throttle level in Mbps (%ENUM%, 0 means no throttling)",
         Between(0, 512)},
    });
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    try {
      const ControlLibrary library;
      library->SetResyncThrottle(input->GetParameterInt("level"));
      output->SetRootObject(MetaBool::New(true));
    } catch (const DovraCtlException& failure) {
      Report(output, failure);
    }
  }
};

template CommandPtr MakeCommand<ResyncThrottleSet>();

}  // namespace OrvaneCli::DovraNamespace
