// The control library's stateless utilities.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/hostctl/DovraCtlException.h"
#include "platform/hostctl/DovraRecords.h"

#pragma GCC visibility push(default)

namespace CoreCtl::Dovra {

/// Each throws `DovraCtlException` when it fails, unless it says otherwise.
class DovraUtil {
 public:
  /// Fills all its arguments from the cluster directory service: the members of this host's
  /// sub-cluster, and the host as its member.
  static void GetInfoFromTavdir(std::vector<HostCtl::Dovra::DovraMemberInfo>& members,
                                std::string& localNodeState, std::string& localNodeUuid,
                                std::string& localNodeHealthState,
                                std::uint64_t& membershipEntryRevision, std::string& membershipUuid,
                                std::string& masterUuid, std::string& backupUuid,
                                std::string& maintenanceModeState);
  /// Whether the cluster's hosts reach each other by unicast.
  static void GetUnicastMode(bool& enabled);
  /// This host's local time, ready to be shown.
  static std::string GetFormattedSystemDateTime();
  /// Whether this host is a cluster's witness.
  static bool IsWitnessNode();
  /// Whether this host's cluster spans two sites and a witness.
  static bool IsInStretchedCluster();
  /// The id of this host's fault domain.
  static std::string GetFaultDomainId();
  /// Fills in the stretched cluster's preferred fault domain.
  static void GetPreferredFaultDomainInfo(std::string& id, std::string& name);
  /// Cancels this host's maintenance-mode operation in progress.
  static void DecomCancel();

  /// Runs the program `command` with one argument, waits, and returns its exit status, negative
  /// when it could not be run. The flags are reserved; callers pass false, true, false. Throws
  /// nothing.
  static int DovraExec(const std::string& command, const std::string& argument, bool reserved1,
                       bool reserved2, bool reserved3);

  /// Characters, not bytes. Throws nothing.
  static std::size_t UTF8StringCharLength(const std::string& text);

  /// Throws when `text` is not a UUID: 36 characters, hexadecimal digits of either case.
  static HostCtl::Dovra::Uuid StringToDovraUuid(const std::string& text);
  /// Lower-case. Throws nothing.
  static std::string DovraUuidToString(const HostCtl::Dovra::Uuid& uuid);

  /// Throws when there is no class of that name.
  static HostCtl::Dovra::DovraPolicyClass StringToDovraPolicyClass(const std::string& text);
  /// The name of the class. Throws nothing.
  static std::string DovraPolicyClassToString(HostCtl::Dovra::DovraPolicyClass policyClass);
  /// All there are. Throws nothing.
  static std::vector<HostCtl::Dovra::DovraPolicyClass> GetDovraPolicyClasses();
};

}  // namespace CoreCtl::Dovra

#pragma GCC visibility pop
