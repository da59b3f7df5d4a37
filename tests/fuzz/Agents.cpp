// A unicast agent's entry, as the control library hands it to `list` and `clear`.

#include <arpa/inet.h>

#include "Fuzz.h"
#include "Run.h"
#include "cluster/UnicastAgent.h"

using namespace OrvaneCli::DovraNamespace;
using namespace Testing;

namespace {

using Strings = std::vector<std::string>;

std::int64_t Number(const std::string& field) {
  return static_cast<std::int64_t>(
      std::clamp<__int128>(Fuzz::LeadingNumber(field), INT64_MIN, INT64_MAX));
}

/// The address as it is recorded; empty if the text is none.
std::string Address(const std::string& text) {
  in6_addr ignored{};
  if (text.find('\0') != std::string::npos) return "";
  if (inet_pton(AF_INET, text.c_str(), &ignored) == 1) return "v4 " + text;
  return inet_pton(AF_INET6, text.c_str(), &ignored) == 1 ? "v6 " + text : "";
}

void CheckCommand(const std::string& command, const std::string& entry, const Outcome& outcome,
                  const Strings& laterCalls) {
  RecordingLibrary library;
  library.unicastAgents = {entry};
  Fuzz::Same("the outcome", Testing::Run(command), outcome);
  Strings calls = {"GetDovraPlugin()", "GetDovraInfo()", "GetClusterConfig()", "IsWitnessNode()",
                   "GetUnicastAgents()"};
  calls.insert(calls.end(), laterCalls.begin(), laterCalls.end());
  Fuzz::Same("calls equal", library.calls == calls, true);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string entry(data, data + size);
  Fuzz::Parts parts(entry, ';');
  Strings fields;
  const auto ends = static_cast<std::size_t>(std::ranges::count(entry, ';'));
  if (ends < 5) {
    const std::string names[] = {"nodeuuid", "isWitness", "ucast support", "ip", "port"};
    const Outcome listed = {"none",
                            {"Invalid unicastAgent entry for " + names[ends] + " " + entry}};
    CheckCommand("cluster unicastagent list", entry, listed, {});
    const bool isNamed = ends == 0 || ends == 4;
    CheckCommand("cluster unicastagent clear", entry,
                 isNamed ? listed : Outcome{"none", {"Invalid unicastAgent entries"}}, {});
    return 0;
  }
  while (fields.size() < 5) fields.push_back(parts.Next());
  fields.push_back(parts.Rest());

  const UnicastAgentEntry read(entry);
  std::string joined = read.GetText(UnicastAgentEntry::kNodeUuid);
  for (int field = 1; field < 6; ++field) {
    joined += ";" + read.GetText(static_cast<UnicastAgentEntry::Field>(field));
  }
  Fuzz::Same("the entry put together again", joined, entry);

  const std::int64_t port = Number(fields[4]);
  CheckCommand("cluster unicastagent list", entry,
               {"[{NodeUuid: " + fields[0] + ", IsWitness: " + std::to_string(Number(fields[1])) +
                    ", Supports Unicast: " + (Number(fields[2]) != 0 ? "true" : "false") +
                    ", IP Address: " + fields[3] + ", Port: " + std::to_string(port) +
                    ", Iface Name: " + fields[5] + "}]",
                {}},
               {});
  const std::string address = Address(fields[3]);
  if (address.empty()) {
    CheckCommand("cluster unicastagent clear", entry, {"none", {"Invalid IP address " + fields[3]}},
                 {});
  } else {
    CheckCommand("cluster unicastagent clear", entry, {"true", {}},
                 {"RemoveUnicastAgent(" + fields[0] + ", " + address + ", " +
                  std::to_string(std::clamp<std::int64_t>(port, INT32_MIN, INT32_MAX)) + ")"});
  }
  return 0;
}
