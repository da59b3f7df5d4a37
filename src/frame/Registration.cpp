// The plug-in's one entry point: the whole `dovra` tree, in the order in which it is registered.

#include <memory>

#include "cluster/ClusterCommands.h"
#include "datastore/DatastoreCommands.h"
#include "network/NetworkCommands.h"
#include "platform/clitools/AutoCli.h"
#include "policy/PolicyCommands.h"
#include "resync/ResyncCommands.h"
#include "storage/StorageCommands.h"
#include "trace/TraceCommands.h"

namespace {

using namespace OrvaneCli::DovraNamespace;
using CliTools::AutoCli::Namespace;

/// A namespace is complete before its parent learns of it.
template <class Children>
void Space(Namespace& parent, const char* name, const char* description, Children&& addChildren) {
  const auto space = Namespace::New();
  space->SetDescription(description);
  addChildren(*space);
  parent.RegisterNamespaceNode(space, name);
}

template <class CommandClass>
void Leaf(Namespace& parent, const char* name) {
  parent.RegisterNamespaceNode(CommandClass::New(), name);
}

/// The root's `dovra` namespace: the one that is there, so that loading twice adds to it.
std::shared_ptr<Namespace> TakeOrAddDovra(Namespace& root) {
  if (root.HasNamespaceNode("dovra")) {
    if (auto dovra = std::dynamic_pointer_cast<Namespace>(root.GetNamespaceNode("dovra"))) {
      return dovra;
    }
  }
  auto dovra = Namespace::New();
  root.RegisterNamespaceNode(dovra, "dovra");
  return dovra;
}

// clang-format off
void AddTree(Namespace& dovra) {
  Space(dovra, "policy", "Commands for Dovra storage policy configuration", [](Namespace& policy) {
    Leaf<PolicyGetDefault>(policy, "getdefault");
    Leaf<PolicySetDefault>(policy, "setdefault");
    Leaf<PolicyClearDefault>(policy, "cleardefault");
  });
  Space(dovra, "datastore", "Commands for Dovra datastore configuration", [](Namespace& datastore) {
    Space(datastore, "name", "Commands for configuring Dovra datastore name.", [](Namespace& name) {
      Leaf<DatastoreNameGet>(name, "get");
      Leaf<DatastoreNameSet>(name, "set");
    });
    Leaf<DatastoreAdd>(datastore, "add");
    Leaf<DatastoreRemove>(datastore, "remove");
    Leaf<DatastoreList>(datastore, "list");
    Leaf<DatastoreClear>(datastore, "clear");
  });
  Space(dovra, "storage", "Commands for Dovra physical storage configuration", [](Namespace& storage) {
    Leaf<StorageAdd>(storage, "add");
    Leaf<StorageRemove>(storage, "remove");
    Leaf<StorageList>(storage, "list");
    Space(storage, "automode", "Commands for configuring Dovra storage auto claim mode.", [](Namespace& automode) {
      Leaf<StorageAutoModeGet>(automode, "get");
      Leaf<StorageAutoModeSet>(automode, "set");
    });
    Space(storage, "diskgroup", "Commands for configuring Dovra diskgroups", [](Namespace& diskgroup) {
      Leaf<StorageDiskgroupMount>(diskgroup, "mount");
      Leaf<StorageDiskgroupUmount>(diskgroup, "unmount");
    });
    Space(storage, "tag", "Commands to add/remove tags for Dovra storage", [](Namespace& tag) {
      Leaf<StorageTagAdd>(tag, "add");
      Leaf<StorageTagRemove>(tag, "remove");
    });
  });
  Space(dovra, "network", "Commands for Dovra host network configuration", [](Namespace& network) {
    Leaf<NetworkRemove>(network, "remove");
    Leaf<NetworkRestore>(network, "restore");
    Leaf<NetworkClear>(network, "clear");
    Leaf<NetworkList>(network, "list");
    const auto ipCommands = [](Namespace& ip) {
      Leaf<NetworkIpAdd>(ip, "add");
      Leaf<NetworkIpRemove>(ip, "remove");
      Leaf<NetworkIpSet>(ip, "set");
    };
    Space(network, "ip", "Commands for configuring IP network for Dovra.", ipCommands);
    Space(network, "ipv4", "Compatibility alias for \"ip\"", ipCommands);
  });
  Space(dovra, "cluster", "Commands for Dovra host cluster configuration", [](Namespace& cluster) {
    Leaf<ClusterJoin>(cluster, "join");
    Leaf<ClusterLeave>(cluster, "leave");
    Leaf<ClusterGet>(cluster, "get");
    Leaf<ClusterRestore>(cluster, "restore");
    Leaf<ClusterNew>(cluster, "new");
    Space(cluster, "unicastagent", "Commands for configuring unicast agents for Dovra.", [](Namespace& unicastAgent) {
      Leaf<ClusterUnicastAgentAdd>(unicastAgent, "add");
      Leaf<ClusterUnicastAgentRemove>(unicastAgent, "remove");
      Leaf<ClusterUnicastAgentList>(unicastAgent, "list");
      Leaf<ClusterUnicastAgentClear>(unicastAgent, "clear");
    });
    Space(cluster, "preferredfaultdomain", "Commands for configuring a preferred fault domain for Dovra.", [](Namespace& preferred) {
      Leaf<ClusterPreferredFaultDomainGet>(preferred, "get");
      Leaf<ClusterPreferredFaultDomainSet>(preferred, "set");
    });
  });
  Space(dovra, "trace", "Commands for Dovra trace configuration", [](Namespace& trace) {
    Leaf<DovraTraceSet>(trace, "set");
    Leaf<DovraTraceGet>(trace, "get");
  });
  Space(dovra, "maintenancemode", "Commands for Dovra maintenance mode operation", [](Namespace& maintenanceMode) {
    Leaf<MaintenanceModeCancel>(maintenanceMode, "cancel");
  });
  Space(dovra, "faultdomain", "Commands for Dovra fault domain configuration", [](Namespace& faultDomain) {
    Leaf<FaultDomainSet>(faultDomain, "set");
    Leaf<FaultDomainGet>(faultDomain, "get");
    Leaf<FaultDomainReset>(faultDomain, "reset");
  });
  Space(dovra, "resync", "Commands for Dovra resync configuration", [](Namespace& resync) {
    Space(resync, "throttle", "Commands for Dovra resync throttling", [](Namespace& throttle) {
      Leaf<ResyncThrottleSet>(throttle, "set");
      Leaf<ResyncThrottleGet>(throttle, "get");
    });
    Space(resync, "bandwidth", "Commands for Dovra resync bandwidth", [](Namespace& bandwidth) {
      Leaf<ResyncBandwidthGet>(bandwidth, "get");
    });
  });
}
// clang-format on

}  // namespace

extern "C" void AutoCli_RegisterNamespaces(const std::shared_ptr<Namespace>& root) {
  const auto dovra = TakeOrAddDovra(*root);
  dovra->SetDescription("Orvane Dovra commands");
  AddTree(*dovra);
}
