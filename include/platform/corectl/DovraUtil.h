// The control library's stateless utilities.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/hostctl/DovraCtlException.h"
#include "platform/hostctl/DovraRecords.h"

namespace CoreCtl::Dovra {

/// Each may throw `DovraCtlException` unless it says otherwise.
class [[gnu::visibility("default")]] DovraUtil {
 public:
  /// Fills all its arguments from the cluster directory service.
  static void GetInfoFromTavdir(
      std::vector<HostCtl::Dovra::DovraMemberInfo> & members, std::string & localNodeState,
      std::string & localNodeUuid, std::string & localNodeHealthState,
      std::uint64_t & membershipEntryRevision, std::string & membershipUuid,
      std::string & masterUuid, std::string & backupUuid, std::string & maintenanceModeState);
  static void GetUnicastMode(bool& enabled);
  /// The host's local time, ready to be shown.
  static std::string GetFormattedSystemDateTime();
  static bool IsWitnessNode();
  static bool IsInStretchedCluster();
  /// The id of this host's fault domain.
  static std::string GetFaultDomainId();
  static void GetPreferredFaultDomainInfo(std::string & id, std::string & name);
  /// Cancels the maintenance-mode operation in progress.
  static void DecomCancel();

  /// Runs `command` with one argument and returns its exit status, negative when it could not be
  /// run. Throws nothing of its own.
  static int DovraExec(const std::string& command, const std::string& argument, bool flag1,
                       bool flag2, bool flag3);

  /// Characters, not bytes. Throws nothing.
  static std::size_t UTF8StringCharLength(const std::string& text);

  /// Throws when `text` is not a UUID: 36 characters, hexadecimal digits of either case.
  static HostCtl::Dovra::Uuid StringToDovraUuid(const std::string& text);
  /// Lower-case. Throws nothing.
  static std::string DovraUuidToString(const HostCtl::Dovra::Uuid& uuid);

  static HostCtl::Dovra::DovraPolicyClass StringToDovraPolicyClass(const std::string& text);
  static std::string DovraPolicyClassToString(HostCtl::Dovra::DovraPolicyClass policyClass);
  static std::vector<HostCtl::Dovra::DovraPolicyClass> GetDovraPolicyClasses();
};

}  // namespace CoreCtl::Dovra
