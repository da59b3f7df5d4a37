// The lab's plug-in: the `lab` tree.

#include "plugin/LabCommands.h"

namespace {

using namespace Lab;
using CliTools::AutoCli::Namespace;

std::shared_ptr<Namespace> Space(Namespace& parent, const char* name, const char* description) {
  auto space = Namespace::New();
  space->SetDescription(description);
  parent.RegisterNamespaceNode(space, name);
  return space;
}

}  // namespace

extern "C" void AutoCli_RegisterNamespaces(const std::shared_ptr<Namespace>& root) {
  const auto lab = Space(*root, "lab", "Commands to rehearse with stand-in hosts");

  const auto host = Space(*lab, "host", "Commands for the lab's hosts");
  host->RegisterNamespaceNode(HostAdd::New(), "add");
  host->RegisterNamespaceNode(HostRemove::New(), "remove");
  host->RegisterNamespaceNode(HostList::New(), "list");
  host->RegisterNamespaceNode(HostReboot::New(), "reboot");

  const auto disk = Space(*lab, "disk", "Commands for a host's disks");
  disk->RegisterNamespaceNode(DiskAdd::New(), "add");
  disk->RegisterNamespaceNode(DiskGenerate::New(), "generate");
  disk->RegisterNamespaceNode(DiskList::New(), "list");

  const auto fault = Space(*lab, "fault", "Commands to make the control library fail");
  fault->RegisterNamespaceNode(FaultAdd::New(), "add");
  fault->RegisterNamespaceNode(FaultList::New(), "list");
  fault->RegisterNamespaceNode(FaultClear::New(), "clear");

  const auto api = Space(*lab, "api", "Commands for a host's control library");
  api->RegisterNamespaceNode(ApiSet::New(), "set");

  const auto maintenance = Space(*lab, "maintenance", "Commands for a host's maintenance mode");
  maintenance->RegisterNamespaceNode(MaintenanceStart::New(), "start");

  const auto resync = Space(*lab, "resync", "Commands for a host's resynchronisation");
  resync->RegisterNamespaceNode(ResyncSet::New(), "set");

  const auto traced = Space(*lab, "traced", "Commands for a host's trace daemon");
  traced->RegisterNamespaceNode(TracedSet::New(), "set");

  lab->RegisterNamespaceNode(Reset::New(), "reset");
}
