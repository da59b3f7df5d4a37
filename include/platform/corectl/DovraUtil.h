// The control library's stateless utilities, called by one thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/hostctl/DovraCtlException.h"
#include "platform/hostctl/DovraRecords.h"

#pragma GCC visibility push(default)

namespace CoreCtl::Dovra {

/// Unless noted, functions throw `DovraCtlException` when they fail, and are called on hosts in a
/// cluster and on others. Out-parameters are empty, false or 0 when a function is called.
class DovraUtil {
 public:
  /// Fills its arguments from the cluster directory service: the members of this host's sub-cluster
  /// (the hosts that share its membership), itself included, in the order in which they are shown,
  /// and the host's own state. A string is empty when there is no value, such as no backup. Strings
  /// are shown unchanged. Called only on a host in a cluster.
  static void GetInfoFromTavdir(std::vector<HostCtl::Dovra::DovraMemberInfo>& members,
                                std::string& localNodeState, std::string& localNodeUuid,
                                std::string& localNodeHealthState,
                                std::uint64_t& membershipEntryRevision, std::string& membershipUuid,
                                std::string& masterUuid, std::string& backupUuid,
                                std::string& maintenanceModeState);
  /// Sets `enabled` to whether the cluster's hosts reach each other by unicast; changes nothing.
  /// Called only on a host in a cluster.
  static void GetUnicastMode(bool& enabled);
  /// Returns this host's local time, as it is shown.
  static std::string GetFormattedSystemDateTime();
  /// Returns whether this host is a cluster's witness; false when it is in no cluster. In a cluster
  /// it returns what `DovraInfo::IsLocalNodeWitness` returns.
  static bool IsWitnessNode();
  /// Returns whether this host's cluster spans two sites and a witness. Called only on a host in a
  /// cluster.
  static bool IsInStretchedCluster();
  /// Returns the id of this host's fault domain. A host that is in none counts as a fault domain of
  /// its own and has an id, too. Called only on a host in a cluster.
  static std::string GetFaultDomainId();
  /// Sets the preferred fault domain's id and name. Called only on a host in a stretched cluster.
  static void GetPreferredFaultDomainInfo(std::string& id, std::string& name);
  /// Cancels this host's maintenance-mode operation; throws when none is in progress.
  static void DecomCancel();

  /// Runs the program at the path `command` with one argument, not through a shell, and waits until
  /// it ends, but not for what it leaves running, such as a daemon. Returns its exit status, 128
  /// plus the number of the signal that ended it, or a negative number when it could not be run.
  /// Throws nothing. The program's output is not shown. The flags are reserved; callers pass false,
  /// true, false.
  static int DovraExec(const std::string& command, const std::string& argument, bool reserved1,
                       bool reserved2, bool reserved3);

  /// Returns the number of characters (code points); a byte that is not part of a UTF-8 sequence
  /// counts as one. Throws nothing.
  static std::size_t UTF8StringCharLength(const std::string& text);

  /// Throws when `text` is not a UUID: groups of 8, 4, 4, 4 and 12 hexadecimal digits of either
  /// case, joined by "-".
  static HostCtl::Dovra::Uuid StringToDovraUuid(const std::string& text);
  /// Returns the 36 characters, lower case: one spelling for each UUID. Throws nothing.
  static std::string DovraUuidToString(const HostCtl::Dovra::Uuid& uuid);

  /// Converts a class's name: "cluster", "vdisk", "vmnamespace", "vmswap" or "vmem". Throws when
  /// there is no class of that name.
  static HostCtl::Dovra::DovraPolicyClass StringToDovraPolicyClass(const std::string& text);
  /// Returns the name of the class. Throws nothing.
  static std::string DovraPolicyClassToString(HostCtl::Dovra::DovraPolicyClass policyClass);
  /// Returns every class, in the order in which they are shown. Throws nothing.
  static std::vector<HostCtl::Dovra::DovraPolicyClass> GetDovraPolicyClasses();
};

}  // namespace CoreCtl::Dovra

#pragma GCC visibility pop
