// What comes to the commands from elsewhere: a unicast agent's entry, as the control library lists
// it, and the trace daemon's configuration file. An input is taken for either.

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>

#include "Fuzz.h"
#include "Run.h"
#include "cluster/UnicastAgent.h"

using namespace OrvaneCli::DovraNamespace;
using namespace Testing;

namespace {

/// Only a whole entry is listed; its fields together are the entry again, and `clear` asks to
/// remove that agent and no other.
void CheckEntry(const std::string& text) {
  RecordingLibrary library;
  library.unicastAgents = {text};
  const UnicastAgentEntry entry(text);
  Require("whole", entry.IsWhole() == (std::ranges::count(text, ';') >= 5));
  Require("listed", Testing::Run("cluster unicastagent list").errors.empty() == entry.IsWhole());
  library.calls.clear();
  const bool isCleared = Testing::Run("cluster unicastagent clear").errors.empty();
  Require("cleared", isCleared == library.calls.back().starts_with("RemoveUnicastAgent("));
  Require("a broken one is not cleared", entry.IsWhole() || !isCleared);
  if (!entry.IsWhole()) return;
  std::string joined = entry.GetText(UnicastAgentEntry::kNodeUuid);
  for (int field = 1; field <= UnicastAgentEntry::kInterfaceName; ++field) {
    joined += ';' + entry.GetText(static_cast<UnicastAgentEntry::Field>(field));
  }
  Require("the fields together", joined == text);
}

/// `get` shows any file; after `set` it shows what was set and the rest as before, and after
/// `reset` what it shows of no file at all.
void CheckTraceFile(const std::string& text) {
  static const int kFile = memfd_create("dovratraced.conf", 0);
  traceConfiguration = "/proc/self/fd/" + std::to_string(kFile);
  const auto fill = [](const std::string& content) {
    Require("written",
            ftruncate(kFile, 0) == 0 && pwrite(kFile, content.data(), content.size(), 0) ==
                                            static_cast<ssize_t>(content.size()));
  };
  const auto show = [] {
    const Outcome shown = Testing::Run("trace get");
    Require("shown", shown.errors.empty());
    return shown.root;
  };
  RecordingLibrary library;
  fill("");
  const std::string empty = show();
  fill(text);
  std::string wanted = show();
  const std::string kField = "Number Of Files To Rotate: ";
  const std::size_t begin = wanted.rfind(kField) + kField.size();
  wanted.replace(begin, wanted.find(',', begin) - begin, "77");
  Require("set", Testing::Run("trace set --numfiles 77").root == "true");
  Require("what was set is shown", show() == wanted);
  Require("reset", Testing::Run("trace set --reset true").root == "true");
  Require("nothing is left", show() == empty);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  CheckEntry(text);
  CheckTraceFile(text);
  return 0;
}
