// `lab traced`.

#include <string>

#include "corectl/LabHost.h"
#include "frame/Command.h"
#include "hostroot/HostRoot.h"

namespace Lab {

using namespace OrvaneCli::DovraNamespace;

namespace {

/// The file in which the stand-in daemon keeps its state.
void WriteState(bool running, std::int64_t failingRestarts) {
  ReplaceFile(LabHost::Current().GetRoot(), kTraceState,
              std::string(R"({"running": )") + (running ? "true" : "false") +
                  R"(, "fail_restarts": )" + std::to_string(failingRestarts) + "}\n");
}

}  // namespace

class TracedSet final : public SuccessCommand<TracedSet> {
 public:
  TracedSet() { DescribeOperation("Set how this host's trace daemon behaves."); }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({
        {"state", "s", ParameterType::kString, Need::kRequired,
         "State of the daemon, one of %ENUM%.", OneOf({{"running", ""}, {"stopped", ""}})},
        {"fail-restarts", "f", ParameterType::kInt, Need::kOptional,
         "How many of the next restarts fail (%ENUM%, none if not given).", Between(0, 1000)},
    });
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    SucceedOrNothing(output, "Unable to set the trace daemon: ", [&] {
      WriteState(input->GetParameter("state") == "running",
                 Given<std::int64_t>(input, "fail-restarts").value_or(0));
    });
  }
};

}  // namespace Lab

namespace OrvaneCli::DovraNamespace {
template CommandPtr MakeCommand<Lab::TracedSet>();
}
