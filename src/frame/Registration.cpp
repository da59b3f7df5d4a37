// The plug-in's entry point and the `dovra` tree.

#include "frame/Tree.h"

namespace OrvaneCli::DovraNamespace {

using CliTools::AutoCli::Namespace;

// Not in an unnamed namespace, where each "class X" would declare another class.
constexpr Node kTree[] = {
    {"dovra policy", "Commands for Dovra storage policy configuration"},
    {"dovra policy getdefault", MakeCommand<class PolicyGetDefault>},
    {"dovra policy setdefault", MakeCommand<class PolicySetDefault>},
    {"dovra policy cleardefault", MakeCommand<class PolicyClearDefault>},
    {"dovra datastore", "Commands for Dovra datastore configuration"},
    {"dovra datastore name", "Commands for configuring Dovra datastore name."},
    {"dovra datastore name get", MakeCommand<class DatastoreNameGet>},
    {"dovra datastore name set", MakeCommand<class DatastoreNameSet>},
    {"dovra datastore add", MakeCommand<class DatastoreAdd>},
    {"dovra datastore remove", MakeCommand<class DatastoreRemove>},
    {"dovra datastore list", MakeCommand<class DatastoreList>},
    {"dovra datastore clear", MakeCommand<class DatastoreClear>},
    {"dovra storage", "Commands for Dovra physical storage configuration"},
    {"dovra storage add", MakeCommand<class StorageAdd>},
    {"dovra storage remove", MakeCommand<class StorageRemove>},
    {"dovra storage list", MakeCommand<class StorageList>},
    {"dovra storage automode", "Commands for configuring Dovra storage auto claim mode."},
    {"dovra storage automode get", MakeCommand<class StorageAutoModeGet>},
    {"dovra storage automode set", MakeCommand<class StorageAutoModeSet>},
    {"dovra storage diskgroup", "Commands for configuring Dovra diskgroups"},
    {"dovra storage diskgroup mount", MakeCommand<class StorageDiskgroupMount>},
    {"dovra storage diskgroup unmount", MakeCommand<class StorageDiskgroupUmount>},
    {"dovra storage tag", "Commands to add/remove tags for Dovra storage"},
    {"dovra storage tag add", MakeCommand<class StorageTagAdd>},
    {"dovra storage tag remove", MakeCommand<class StorageTagRemove>},
    {"dovra network", "Commands for Dovra host network configuration"},
    {"dovra network remove", MakeCommand<class NetworkRemove>},
    {"dovra network restore", MakeCommand<class NetworkRestore>},
    {"dovra network clear", MakeCommand<class NetworkClear>},
    {"dovra network list", MakeCommand<class NetworkList>},
    {"dovra network ip", "Commands for configuring IP network for Dovra."},
    {"dovra network ip add", MakeCommand<class NetworkIpAdd>},
    {"dovra network ip remove", MakeCommand<class NetworkIpRemove>},
    {"dovra network ip set", MakeCommand<class NetworkIpSet>},
    {"dovra network ipv4", "Compatibility alias for \"ip\""},
    {"dovra network ipv4 add", MakeCommand<class NetworkIpAdd>},
    {"dovra network ipv4 remove", MakeCommand<class NetworkIpRemove>},
    {"dovra network ipv4 set", MakeCommand<class NetworkIpSet>},
    {"dovra cluster", "Commands for Dovra host cluster configuration"},
    {"dovra cluster join", MakeCommand<class ClusterJoin>},
    {"dovra cluster leave", MakeCommand<class ClusterLeave>},
    {"dovra cluster get", MakeCommand<class ClusterGet>},
    {"dovra cluster restore", MakeCommand<class ClusterRestore>},
    {"dovra cluster new", MakeCommand<class ClusterNew>},
    {"dovra cluster unicastagent", "Commands for configuring unicast agents for Dovra."},
    {"dovra cluster unicastagent add", MakeCommand<class ClusterUnicastAgentAdd>},
    {"dovra cluster unicastagent remove", MakeCommand<class ClusterUnicastAgentRemove>},
    {"dovra cluster unicastagent list", MakeCommand<class ClusterUnicastAgentList>},
    {"dovra cluster unicastagent clear", MakeCommand<class ClusterUnicastAgentClear>},
    {"dovra cluster preferredfaultdomain",
     "Commands for configuring a preferred fault domain for Dovra."},
    {"dovra cluster preferredfaultdomain get", MakeCommand<class ClusterPreferredFaultDomainGet>},
    {"dovra cluster preferredfaultdomain set", MakeCommand<class ClusterPreferredFaultDomainSet>},
    {"dovra trace", "Commands for Dovra trace configuration"},
    {"dovra trace set", MakeCommand<class DovraTraceSet>},
    {"dovra trace get", MakeCommand<class DovraTraceGet>},
    {"dovra maintenancemode", "Commands for Dovra maintenance mode operation"},
    {"dovra maintenancemode cancel", MakeCommand<class MaintenanceModeCancel>},
    {"dovra faultdomain", "Commands for Dovra fault domain configuration"},
    {"dovra faultdomain set", MakeCommand<class FaultDomainSet>},
    {"dovra faultdomain get", MakeCommand<class FaultDomainGet>},
    {"dovra faultdomain reset", MakeCommand<class FaultDomainReset>},
    {"dovra resync", "Commands for Dovra resync configuration"},
    {"dovra resync throttle", "Commands for Dovra resync throttling"},
    {"dovra resync throttle set", MakeCommand<class ResyncThrottleSet>},
    {"dovra resync throttle get", MakeCommand<class ResyncThrottleGet>},
    {"dovra resync bandwidth", "Commands for Dovra resync bandwidth"},
    {"dovra resync bandwidth get", MakeCommand<class ResyncBandwidthGet>},
};

namespace {

/// Returns the root's `dovra` namespace; adds one when there is none.
std::shared_ptr<Namespace> FindOrAddDovra(Namespace& root) {
  if (root.HasNamespaceNode("dovra")) {
    if (auto dovra = std::dynamic_pointer_cast<Namespace>(root.GetNamespaceNode("dovra"))) {
      return dovra;
    }
  }
  auto dovra = Namespace::New();
  root.RegisterNamespaceNode(dovra, "dovra");
  return dovra;
}

}  // namespace

}  // namespace OrvaneCli::DovraNamespace

extern "C" void AutoCli_RegisterNamespaces(
    const std::shared_ptr<CliTools::AutoCli::Namespace>& root) {
  using namespace OrvaneCli::DovraNamespace;
  const auto dovra = FindOrAddDovra(*root);
  dovra->SetDescription("Orvane Dovra commands");
  Register(kTree, *dovra, "dovra");
}
