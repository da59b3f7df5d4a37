// The values that the control library and its callers exchange.
#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/hostctl/Network.h"

#pragma GCC visibility push(default)

namespace HostCtl::Dovra {

/// A 128-bit UUID, most significant byte first.
struct Uuid {
  std::array<std::uint8_t, 16> bytes{};
  auto operator<=>(const Uuid&) const = default;
};

/// The classes of objects. Each may have a default storage policy.
enum class DovraPolicyClass { kCluster, kVdisk, kVmNamespace, kVmSwap, kVmem };

/// An address of either family; the member of the other family keeps its default.
struct DovraIpAddress {
  bool isIpv6 = false;
  Network::Ipv4Address ipv4;
  Network::Ipv6Address ipv6;

  DovraIpAddress() = default;
  explicit DovraIpAddress(Network::Ipv4Address address) : ipv4(address) {}
  explicit DovraIpAddress(Network::Ipv6Address address) : isIpv6(true), ipv6(std::move(address)) {}

  std::string GetStringAddress() const {
    return isIpv6 ? ipv6.GetStringAddress() : ipv4.GetStringAddress();
  }
  bool operator==(const DovraIpAddress& other) const {
    return isIpv6 == other.isIpv6 && (isIpv6 ? ipv6 == other.ipv6 : ipv4 == other.ipv4);
  }
};

struct DovraClusterConfig {
  bool enabled = false;     ///< the host is in a cluster
  std::string clusterUuid;  ///< empty when `enabled` is false
};

struct DovraConfigGeneration {
  std::string uuid;  ///< may be empty, which is shown as "None"
  std::uint64_t generation = 0;
  std::uint64_t timestamp = 0;  ///< milliseconds since the epoch
};

struct DovraMemberInfo {
  std::string uuid;
};

/// A datastore of the cluster. Users of any host in the cluster choose its name, which holds no
/// zero byte, because it becomes part of a shell command.
class DovraDatastore {
 public:
  DovraDatastore(std::string uuid, std::string name, bool isDefault);
  const std::string& GetUuid() const { return uuid_; }
  const std::string& GetName() const { return name_; }
  bool IsDefault() const { return isDefault_; }

 private:
  std::string uuid_;
  std::string name_;
  bool isDefault_;
};

/// A device that holds a disk of a disk group. The order of its virtual functions is part of
/// the ABI: `GetUuid` is the first, so the destructor follows the others.
class DovraDiskLun {
 public:
  // Both throw `DovraCtlException` when the device does not answer. A throw ends the listing.
  virtual Uuid GetUuid() const = 0;
  virtual std::string GetDeviceName() const = 0;
  virtual ~DovraDiskLun();
};

/// One disk of the cluster. Unknown strings are empty. Strings are shown unchanged; vendor and
/// model are not shown.
struct DovraDiskInfo {
  std::string deviceName;
  bool isFlash = false;
  std::string uuid;
  std::string diskGroupUuid;  ///< the UUID of the group's flash device
  std::string diskGroupName;
  std::string vendor;
  std::string model;
  bool usedByThisHost = false;
  bool inTavdir = false;  ///< published in the cluster directory
  /// The number on the disk. Commands show 0 as "1", 3 as "2.5", 4 as "3", others as they are.
  std::int32_t formatVersion = 0;
  bool deduplication = false;  ///< shown as deduplication and as compression
  std::string checksum;
  bool checksumOk = false;
  bool isCapacityTier = false;
  bool encryption = false;
  bool diskKeyLoaded = false;
  bool isMounted = false;
};

/// One kernel network interface of the storage network, with its IPv4 groups.
class DovraKnicConfig {
 public:
  virtual ~DovraKnicConfig();

  const std::string& GetKnicName() const { return knicName_; }
  const std::string& GetIfaceUuid() const { return ifaceUuid_; }
  const DovraIpAddress& GetAgentMulticastGroup() const { return agentGroup_; }
  const DovraIpAddress& GetMasterMulticastGroup() const { return masterGroup_; }
  int GetAgentMulticastPort() const { return agentPort_; }
  int GetMasterMulticastPort() const { return masterPort_; }
  int GetHostUnicastPort() const { return hostUnicastPort_; }
  int GetMulticastTTL() const { return multicastTtl_; }

 protected:
  DovraKnicConfig(std::string knicName, DovraIpAddress agentGroup, DovraIpAddress masterGroup,
                  int agentPort, int masterPort, int hostUnicastPort, int multicastTtl,
                  std::string ifaceUuid);

 private:
  std::string knicName_;
  DovraIpAddress agentGroup_;
  DovraIpAddress masterGroup_;
  int agentPort_;
  int masterPort_;
  int hostUnicastPort_;
  int multicastTtl_;
  std::string ifaceUuid_;
};

/// One kernel network interface of the storage network, with IPv6 groups and traffic types.
class DovraKnicConfig2 : public DovraKnicConfig {
 public:
  DovraKnicConfig2(std::string knicName, DovraIpAddress agentGroup, DovraIpAddress agentV6Group,
                   DovraIpAddress masterGroup, DovraIpAddress masterV6Group, int agentPort,
                   int masterPort, int hostUnicastPort, int multicastTtl, bool carriesDovra,
                   bool carriesWitness, std::string ifaceUuid);
  ~DovraKnicConfig2() override;

  const DovraIpAddress& GetAgentV6MulticastGroup() const { return agentV6Group_; }
  const DovraIpAddress& GetMasterV6MulticastGroup() const { return masterV6Group_; }
  /// Fills `types`, which is empty, with the traffic that the interface carries: "dovra",
  /// "witness".
  void GetTrafficTypes(std::vector<std::string>& types) const;

  bool carriesDovra;
  bool carriesWitness;

 private:
  DovraIpAddress agentV6Group_;
  DovraIpAddress masterV6Group_;
};

}  // namespace HostCtl::Dovra

#pragma GCC visibility pop
