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
  Check<ResyncBandwidthGet>(rates, {}, kOpen + Strings{"GetResyncBandwidth()"},
                            {"{Rate: 8589934593}", {}});
  Check<ResyncThrottleGet>(rates, {}, kOpen + Strings{"GetResyncThrottle()"},
                           {"{Level: -8589934593}", {}});
  Check<ResyncThrottleSet>({}, {{"level", 0}}, kOpen + Strings{"SetResyncThrottle(0)"}, kTrue);
  Check<ResyncThrottleSet>({}, {{"level", 512}}, kOpen + Strings{"SetResyncThrottle(512)"}, kTrue);
}

}  // namespace
