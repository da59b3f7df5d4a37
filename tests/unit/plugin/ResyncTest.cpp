#include "Cases.h"
#include "resync/ResyncCommands.h"

using namespace OrvaneCli::DovraNamespace;
using namespace Testing;

namespace {

// Numbers wider than 32 bits: nothing is cut on the way.
TEST(ResyncCommands, HandOneRequestToTheLibrary) {
  const auto rates = [](RecordingLibrary& library) {
    library.bandwidth = 8589934593;
    library.throttle = -8589934593;
  };
  CheckEachFailure<ResyncBandwidthGet>(rates, {}, kOpen + Strings{"GetResyncBandwidth()"},
                                       Failed("broken"), {"{Rate: 8589934593}", {}});
  CheckEachFailure<ResyncThrottleGet>(rates, {}, kOpen + Strings{"GetResyncThrottle()"},
                                      Failed("broken"), {"{Level: -8589934593}", {}});
  CheckEachFailure<ResyncThrottleSet>({}, {{"level", 0}}, kOpen + Strings{"SetResyncThrottle(0)"},
                                      Failed("broken"));
  CheckEachFailure<ResyncThrottleSet>({}, {{"level", 512}},
                                      kOpen + Strings{"SetResyncThrottle(512)"}, Failed("broken"));
}

}  // namespace
