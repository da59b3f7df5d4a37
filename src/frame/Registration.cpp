// The plug-in's one entry point: the whole `dovra` tree, in the order in which it is registered.

#include <memory>

#include "cluster/ClusterCommands.h"
#include "platform/clitools/AutoCli.h"

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
  Space(dovra, "policy", "Commands for Dovra storage policy configuration", [](Namespace&) {
  });
  Space(dovra, "datastore", "Commands for Dovra datastore configuration", [](Namespace& datastore) {
    Space(datastore, "name", "Commands for configuring Dovra datastore name.", [](Namespace&) {
    });
  });
  Space(dovra, "storage", "Commands for Dovra physical storage configuration", [](Namespace& storage) {
    Space(storage, "automode", "Commands for configuring Dovra storage auto claim mode.", [](Namespace&) {
    });
    Space(storage, "diskgroup", "Commands for configuring Dovra diskgroups", [](Namespace&) {
    });
    Space(storage, "tag", "Commands to add/remove tags for Dovra storage", [](Namespace&) {
    });
  });
  Space(dovra, "network", "Commands for Dovra host network configuration", [](Namespace& network) {
    Space(network, "ip", "Commands for configuring IP network for Dovra.", [](Namespace&) {
    });
    Space(network, "ipv4", "Compatibility alias for \"ip\"", [](Namespace&) {
    });
  });
  Space(dovra, "cluster", "Commands for Dovra host cluster configuration", [](Namespace& cluster) {
    Leaf<ClusterJoin>(cluster, "join");
    Leaf<ClusterLeave>(cluster, "leave");
    Leaf<ClusterGet>(cluster, "get");
    Leaf<ClusterRestore>(cluster, "restore");
    Leaf<ClusterNew>(cluster, "new");
    Space(cluster, "unicastagent", "Commands for configuring unicast agents for Dovra.", [](Namespace&) {
    });
    Space(cluster, "preferredfaultdomain", "Commands for configuring a preferred fault domain for Dovra.", [](Namespace&) {
    });
  });
  Space(dovra, "trace", "Commands for Dovra trace configuration", [](Namespace&) {
  });
  Space(dovra, "maintenancemode", "Commands for Dovra maintenance mode operation", [](Namespace&) {
  });
  Space(dovra, "faultdomain", "Commands for Dovra fault domain configuration", [](Namespace&) {
  });
  Space(dovra, "resync", "Commands for Dovra resync configuration", [](Namespace& resync) {
    Space(resync, "throttle", "Commands for Dovra resync throttling", [](Namespace&) {
    });
    Space(resync, "bandwidth", "Commands for Dovra resync bandwidth", [](Namespace&) {
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
