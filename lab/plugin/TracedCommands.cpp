// `lab traced`.

#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "corectl/LabHost.h"
#include "plugin/LabCommands.h"

namespace Lab {

namespace {

namespace fs = std::filesystem;

/// The file in which the stand-in daemon keeps its state.
void WriteState(bool running, std::int64_t failingRestarts) {
  const fs::path folder = PrepareRoot(LabHost::Current().GetName()) / "var" / "run";
  const fs::path draft = folder / ("dovratraced.json.new-" + std::to_string(getpid()));
  std::error_code error;
  fs::create_directories(folder, error);
  std::ofstream file(draft);
  file << R"({"running": )" << (running ? "true" : "false") << R"(, "fail_restarts": )"
       << failingRestarts << "}\n";
  file.close();
  if (file) fs::rename(draft, folder / "dovratraced.json", error);
  if (!file || error) throw LabError("\"" + folder.string() + "\" cannot be written");
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
