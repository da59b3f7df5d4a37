#include "Cases.h"

using namespace Testing;

namespace {

// Numbers wider than 32 bits: nothing is cut on the way.
TEST(ResyncCommands, HandOneRequestToTheLibrary) {
  const auto rates = [](RecordingLibrary& library) {
    library.bandwidth = 8589934593;
    library.throttle = -8589934593;
  };
  Check("resync bandwidth get", rates, kOpen + "GetResyncBandwidth()", {"{Rate: 8589934593}", {}});
  Check("resync throttle get", rates, kOpen + "GetResyncThrottle()", {"{Level: -8589934593}", {}});
  Check("resync throttle set --level 0", kOpen + "SetResyncThrottle(0)", kTrue);
  Check("resync throttle set --level 512", kOpen + "SetResyncThrottle(512)", kTrue);
}

}  // namespace
