#include "autocli/Completion.h"

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <string_view>

#include "autocli/CommandTree.h"
#include "autocli/Options.h"
#include "autocli/Run.h"
#include "autocli/Terminal.h"
#include "clitools/Completion.h"
#include "clitools/Text.h"
#include "clitools/UsageError.h"
#include "clitools/Words.h"
#include "corectl/LabHost.h"

namespace AutoCliProgram {

using CliTools::Candidate;
using Lab::DiskRow;
using Lab::HostRow;
using Lab::Store;

namespace {

using Candidates = std::vector<Candidate>;

// The scripts hand over the line as it was typed, and autocli takes it apart, so that none of them
// has to undo quotes. bash breaks words at ":" and "=" too, and wants only what follows the last
// break; it alone keeps variables that are set before the command to itself.
constexpr const char* kBash = R"(# bash completion for autocli
_autocli() {
    local LC_ALL=C line word typed kept= breaks=${COMP_WORDBREAKS//[^:=]/}
    line=${COMP_LINE:0:COMP_POINT}
    typed=${line##*[[:space:]]}
    [[ $breaks && $typed != [\"\']* ]] && kept=${typed%"${typed##*[$breaks]}"}
    COMPREPLY=()
    while IFS=$'\t' read -r word _; do
        if [[ $word == / ]]; then
            compopt -o default 2>/dev/null
        else
            printf -v word %q "$word"
            COMPREPLY+=("${word#"$kept"}")
        fi
    done < <("${1/#\~\//$HOME/}" --complete "$line" 2>/dev/null)
}
complete -F _autocli autocli
)";

constexpr const char* kZsh = R"(#compdef autocli
# zsh completion for autocli
_autocli() {
    local line word description
    local -a candidates variables
    # Variables that are set before the command are no part of its words.
    variables=(${(M)${(z)LBUFFER}:#AUTOCLI_*=*})
    line="$variables ${(j: :)words[1,CURRENT-1]} $PREFIX"
    while IFS=$'\t' read -r word description; do
        if [[ $word == / ]]; then
            compset -P '*='
            _files
            return
        fi
        candidates+=("${word//:/\\:}${description:+:$description}")
    done < <("${(Q)words[1]/#\~\//$HOME/}" --complete "$line" 2>/dev/null)
    _describe -V 'autocli' candidates
}
if [[ $funcstack[1] == _autocli ]]; then
    _autocli "$@"
else
    compdef _autocli autocli
fi
)";

constexpr const char* kFish = R"(# fish completion for autocli
function __autocli_complete
    set -l program (string replace -r '^~/' "$HOME/" -- (commandline -opc)[1])
    set -l candidates ($program --complete (commandline -cp) 2>/dev/null)
    if string match -q -r '^/\t?$' -- "$candidates[1]"
        set -l typed (commandline -ct)
        set -l option (string match -r '^--[^=]*=' -- $typed)
        for path in (__fish_complete_path (string replace -r '^--[^=]*=' '' -- $typed))
            echo "$option$path"
        end
    else
        printf '%s\n' $candidates
    end
end
complete -c autocli -f -k -a '(__autocli_complete)'
)";

// What the parameters of the plug-ins' commands name in the lab.

enum class Kind {
  kHosts,
  kHostUuids,
  kFaultDomains,
  kClusters,
  kDatastores,
  kInterfaces,
  kAgentAddresses,
  kAgentUuids,
  kEmptyFlash,
  kEmptyCapacity,
  kFlash,
  kCache,
  kClaimed,
  kClaimedUuids,
  kTrafficTypes,
  kEvacuationModes,
};

/// Of several rows that fit, the first one counts.
struct Rule {
  std::string_view command;  ///< how the command's path begins
  std::string_view parameter;
  Kind kind;
};

constexpr Rule kRules[] = {
    {"lab host remove", "name", Kind::kHosts},
    {"lab host reboot", "name", Kind::kHosts},
    {"dovra cluster join", "cluster-uuid", Kind::kClusters},
    {"dovra cluster join", "witness-preferred-fault-domain", Kind::kFaultDomains},
    {"dovra cluster preferredfaultdomain", "preferred-fault-domain-name", Kind::kFaultDomains},
    {"dovra cluster unicastagent add", "uuid", Kind::kHostUuids},
    {"dovra cluster unicastagent add", "bound-interface-name", Kind::kInterfaces},
    {"dovra cluster unicastagent remove", "uuid", Kind::kAgentUuids},
    {"dovra cluster unicastagent remove", "addr", Kind::kAgentAddresses},
    {"dovra datastore name", "uuid", Kind::kDatastores},
    {"dovra datastore remove", "uuid", Kind::kDatastores},
    {"dovra network", "interface-name", Kind::kInterfaces},
    {"dovra network", "traffic-type", Kind::kTrafficTypes},
    {"dovra storage remove", "evacuation-mode", Kind::kEvacuationModes},
    {"dovra storage add", "ssd", Kind::kEmptyFlash},
    {"dovra storage add", "disks", Kind::kEmptyCapacity},
    {"dovra storage tag", "disk", Kind::kFlash},
    {"dovra storage", "ssd", Kind::kCache},
    {"dovra storage", "disk", Kind::kClaimed},
    {"dovra storage", "device", Kind::kClaimed},
    {"dovra storage", "uuid", Kind::kClaimedUuids},
};

Candidates HostsOf(Store& store, std::string HostRow::*text, std::string HostRow::*description) {
  Candidates candidates;
  for (const HostRow& host : store.ListHosts()) {
    if (!(host.*text).empty()) candidates.push_back({host.*text, host.*description});
  }
  return candidates;
}

template <class Filter>
Candidates DisksOf(Store& store, const HostRow& host, std::string DiskRow::*text, Filter&& filter) {
  Candidates candidates;
  for (const DiskRow& disk : store.ListDisks(host.id)) {
    if (!filter(disk)) continue;
    const std::string& description = text == &DiskRow::uuid ? disk.device : disk.groupName;
    candidates.push_back({disk.*text, description});
  }
  return candidates;
}

Candidates Clusters(Store& store) {
  Candidates candidates;
  for (const HostRow& host : store.ListHosts()) {
    const auto member = store.FindMember(host.id);
    if (!member) continue;
    const auto known = std::ranges::find(candidates, member->cluster, &Candidate::text);
    if (known == candidates.end()) {
      candidates.push_back({member->cluster, "cluster of " + host.name});
    } else {
      known->description += ", " + host.name;
    }
  }
  return candidates;
}

Candidates Datastores(Store& store, const HostRow& host) {
  Candidates candidates;
  const auto member = store.FindMember(host.id);
  if (!member) return candidates;
  for (const auto& datastore : store.ListDatastores(member->cluster)) {
    candidates.push_back({datastore.uuid, datastore.name});
  }
  return candidates;
}

Candidates Interfaces(Store& store, const HostRow& host) {
  Candidates candidates;
  for (auto& interface : store.ListInterfaces(host.id)) {
    candidates.push_back({std::move(interface.name), ""});
  }
  return candidates;
}

Candidates Agents(Store& store, const HostRow& host, bool addresses) {
  Candidates candidates;
  for (const auto& agent : store.ListAgents(host.id)) {
    candidates.push_back(addresses ? Candidate{agent.address, agent.nodeUuid}
                                   : Candidate{agent.nodeUuid, agent.address});
  }
  return candidates;
}

Candidates FromHost(Kind kind, Store& store, const HostRow& host) {
  switch (kind) {
    case Kind::kDatastores:
      return Datastores(store, host);
    case Kind::kInterfaces:
      return Interfaces(store, host);
    case Kind::kAgentAddresses:
      return Agents(store, host, true);
    case Kind::kAgentUuids:
      return Agents(store, host, false);
    case Kind::kEmptyFlash:
      return DisksOf(store, host, &DiskRow::device, [](const DiskRow& disk) {
        return !disk.IsClaimed() && !disk.IsCapacityKind();
      });
    case Kind::kEmptyCapacity:
      return DisksOf(store, host, &DiskRow::device, [](const DiskRow& disk) {
        return !disk.IsClaimed() && disk.IsCapacityKind();
      });
    case Kind::kFlash:
      return DisksOf(store, host, &DiskRow::device, [](const DiskRow& disk) { return disk.flash; });
    case Kind::kCache:
      return DisksOf(store, host, &DiskRow::device, std::mem_fn(&DiskRow::IsCache));
    case Kind::kClaimed:
      return DisksOf(store, host, &DiskRow::device, std::mem_fn(&DiskRow::IsClaimed));
    case Kind::kClaimedUuids:
      return DisksOf(store, host, &DiskRow::uuid, std::mem_fn(&DiskRow::IsClaimed));
    default:
      return {};
  }
}

/// Throws `LabError` when there is no such lab or host.
Candidates FromLab(Kind kind, const Options& options) {
  SelectLab(options);
  if (!Lab::IsMade()) return {};
  Store& store = Lab::OpenStore();
  switch (kind) {
    case Kind::kHosts:
      return HostsOf(store, &HostRow::name, &HostRow::uuid);
    case Kind::kHostUuids:
      return HostsOf(store, &HostRow::uuid, &HostRow::name);
    case Kind::kFaultDomains:
      return HostsOf(store, &HostRow::faultDomain, &HostRow::name);
    case Kind::kClusters:
      return Clusters(store);
    default:
      break;
  }
  const auto host = store.FindHost(options.host);
  return host ? FromHost(kind, store, *host) : Candidates();
}

Candidates ValuesOf(const std::string& command, const std::string& parameter,
                    const Options& options) {
  if (command.empty()) {  // autocli's own options
    if (parameter == "host") return FromLab(Kind::kHosts, options);
    const bool isPath = parameter == "lab" || parameter == "plugin-dir" || parameter == "batch";
    return isPath ? Candidates{{CliTools::kAnyPath, ""}} : Candidates();
  }
  const auto rule = std::ranges::find_if(kRules, [&](const Rule& candidate) {
    return command.starts_with(candidate.command) && parameter == candidate.parameter;
  });
  if (rule == std::end(kRules)) return {};
  if (rule->kind == Kind::kTrafficTypes) return {{"dovra", ""}, {"witness", ""}};
  if (rule->kind == Kind::kEvacuationModes) {
    return {{"ensureObjectAccessibility", ""}, {"evacuateAllData", ""}, {"noAction", ""}};
  }
  return FromLab(rule->kind, options);
}

/// The options that the words hold so far. The last of them may still want its value.
Options ReadTypedOptions(std::vector<std::string> words) {
  for (words.pop_back(); !words.empty(); words.pop_back()) {
    try {
      return ReadOptions(words, OptionsFromEnvironment());
    } catch (const CliTools::UsageError&) {
      continue;
    }
  }
  return OptionsFromEnvironment();
}

/// The words behind the program's name. Variables that are set before it hold for it.
std::vector<std::string> ReadWords(const std::string& line) {
  std::vector<std::string> words = CliTools::SplitTyped(line);
  auto program = words.begin();
  for (; program != words.end() && program->find('=') != std::string::npos; ++program) {
    const std::size_t equals = program->find('=');
    setenv(program->substr(0, equals).c_str(), program->c_str() + equals + 1, 1);
  }
  if (program != words.end()) ++program;
  words.erase(words.begin(), program);
  if (words.empty()) words.emplace_back();
  return words;
}

}  // namespace

const char* CompletionScript(const std::string& shell) {
  return shell == "bash" ? kBash : shell == "zsh" ? kZsh : kFish;
}

bool IsCompletionRequest(const std::vector<std::string>& arguments) {
  return arguments.size() == 2 && arguments.front() == "--complete";
}

void CompleteLine(const std::string& line) noexcept {
  // Somebody waits at the keyboard: rather nothing than to wait for a lab that is held by others.
  constexpr unsigned kMostSeconds = 2;
  signal(SIGALRM, [](int) { _exit(0); });
  alarm(kMostSeconds);
  try {
    const std::vector<std::string> words = ReadWords(line);
    const Options options = ReadTypedOptions(words);
    CommandTree tree(PluginFolder(options));
    const auto values = [&options](const std::string& command, const std::string& parameter) {
      return ValuesOf(command, parameter, options);
    };
    std::string text;
    for (const Candidate& candidate :
         CliTools::Complete(*OptionsSpec(), *tree.GetWhole(), words, values)) {
      text += CliTools::Printable(candidate.text) + '\t' +
              CliTools::Printable(candidate.description) + '\n';
    }
    Print(text);
  } catch (...) {  // there is nothing to complete with
  }
}

}  // namespace AutoCliProgram
