#include "frame/ControlLibrary.h"
#include "resync/ResyncCommands.h"

namespace OrvaneCli::DovraNamespace {

ResyncThrottleSet::ResyncThrottleSet() {
  DescribeOperation("Configure Dovra resync throttling");
}

InputSpecPtr ResyncThrottleSet::GetInputSpecInternal() {
  return MakeInputSpec({
      {"level", "", ParameterType::kInt, Need::kRequired,
       "Set Dovra resync throttle level in Mbps (%ENUM%, 0 means no throttling)", Between(0, 512)},
  });
}

void ResyncThrottleSet::ExecuteInternal(const InputPtr& input, const OutputPtr& output) {
  SucceedOrNothing(output, "", [&] {
    const ControlLibrary library;
    library->SetResyncThrottle(input->GetParameterInt("level"));
  });
}

}  // namespace OrvaneCli::DovraNamespace
