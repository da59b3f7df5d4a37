// `lab traced`.

#include <filesystem>

#include "corectl/LabHost.h"
#include "hostroot/HostRoot.h"
#include "plugin/LabCommands.h"

namespace Lab {

namespace {

namespace fs = std::filesystem;

/// The file in which the stand-in daemon keeps its state.
void WriteState(bool running, std::int64_t failingRestarts) {
  const fs::path folder = LabHost::Current().GetRoot() / "var" / "run";
  std::error_code ignored;
  for (const fs::path& missing : {folder.parent_path(), folder})
    fs::create_directory(missing, ignored);
  ReplaceFile(folder / "dovratraced.json",
              std::string(R"({"running": )") + (running ? "true" : "false") +
                  R"(, "fail_restarts": )" + std::to_string(failingRestarts) + "}\n");
}

}  // namespace

TracedSet::TracedSet() {
  DescribeOperation("Set how this host's trace daemon behaves.");
}

InputSpecPtr TracedSet::GetInputSpecInternal() {
  return MakeInputSpec({
      {"state", "s", ParameterType::kString, Need::kRequired, "State of the daemon, one of %ENUM%.",
       OneOf({{"running", ""}, {"stopped", ""}})},
      {"fail-restarts", "f", ParameterType::kInt, Need::kOptional,
       "How many of the next restarts fail (%ENUM%, none if not given).", Between(0, 1000)},
  });
}

void TracedSet::ExecuteInternal(const InputPtr& input, const OutputPtr& output) {
  SucceedOrNothing(output, "Unable to set the trace daemon: ", [&] {
    WriteState(input->GetParameter("state") == "running", input->GetParameterInt("fail-restarts"));
  });
}

}  // namespace Lab
