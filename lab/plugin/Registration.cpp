// The lab's plug-in: the `lab` tree.

#include "frame/Tree.h"

namespace Lab {

using namespace OrvaneCli::DovraNamespace;

constexpr Node kTree[] = {
    {"lab", "Commands to rehearse with stand-in hosts"},
    {"lab host", "Commands for the lab's hosts"},
    {"lab host add", MakeCommand<class HostAdd>},
    {"lab host remove", MakeCommand<class HostRemove>},
    {"lab host list", MakeCommand<class HostList>},
    {"lab host reboot", MakeCommand<class HostReboot>},
    {"lab disk", "Commands for a host's disks"},
    {"lab disk add", MakeCommand<class DiskAdd>},
    {"lab disk fail", MakeCommand<class DiskFail>},
    {"lab disk unplug", MakeCommand<class DiskUnplug>},
    {"lab disk replug", MakeCommand<class DiskReplug>},
    {"lab disk replace", MakeCommand<class DiskReplace>},
    {"lab disk generate", MakeCommand<class DiskGenerate>},
    {"lab disk list", MakeCommand<class DiskList>},
    {"lab network", "Commands for the network between the hosts"},
    {"lab network split", MakeCommand<class NetworkSplit>},
    {"lab network heal", MakeCommand<class NetworkHeal>},
    {"lab agent", "Commands for a host's unicast agents"},
    {"lab agent add", MakeCommand<class AgentAdd>},
    {"lab fault", "Commands to make the control library fail"},
    {"lab fault add", MakeCommand<class FaultAdd>},
    {"lab fault list", MakeCommand<class FaultList>},
    {"lab fault clear", MakeCommand<class FaultClear>},
    {"lab api", "Commands for a host's control library"},
    {"lab api set", MakeCommand<class ApiSet>},
    {"lab maintenance", "Commands for a host's maintenance mode"},
    {"lab maintenance start", MakeCommand<class MaintenanceStart>},
    {"lab resync", "Commands for a host's resynchronisation"},
    {"lab resync set", MakeCommand<class ResyncSet>},
    {"lab traced", "Commands for a host's trace daemon"},
    {"lab traced set", MakeCommand<class TracedSet>},
    {"lab reset", MakeCommand<class Reset>},
};

}  // namespace Lab

extern "C" void AutoCli_RegisterNamespaces(
    const std::shared_ptr<CliTools::AutoCli::Namespace>& root) {
  OrvaneCli::DovraNamespace::Register(Lab::kTree, *root, "");
}
