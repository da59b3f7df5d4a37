// The control library's information objects: the host's part in the storage cluster, read and
// changed.
//
// - The order of virtual functions is binary interface; in these two classes the destructor is the
//   first. A library with further functions between them declares those in their places here, and
//   builds the plug-in with that header.
// - Every operation throws `DovraCtlException` when the library refuses it or fails. Its message is
//   shown to the administrator.
// - Operations are called on hosts in a cluster and on others, unless noted.
// - Objects are used by one thread, for the length of one call of a command.
// - Lists and records that an operation fills are empty when it is called, so it may assign to them
//   or append. Handles in lists may be null; callers skip those.
// - Ports, UUID strings, names and policies are as the user typed them, unchecked unless noted. For
//   a port or TTL beyond 32 bits, callers pass the nearest number of 32 bits; for a port, TTL or
//   group not given, a usable default of their own. The library throws for those that it does not
//   accept.
// - A UUID string of either letter case names the same object.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/hostctl/DovraCtlException.h"
#include "platform/hostctl/DovraRecords.h"

#pragma GCC visibility push(default)

namespace HostCtl::Dovra {

class DovraInfo {
 public:
  using DiskLuns = std::vector<std::shared_ptr<DovraDiskLun>>;
  using Datastores = std::vector<std::shared_ptr<DovraDatastore>>;

  /// Fills `luns` with every device that this host sees and that holds a disk of a disk group, also
  /// outside a cluster. Needs no connection: callers make theirs afterwards, and destroy it before
  /// the handles.
  static void GetDovraDisks(DiskLuns& luns);

  virtual ~DovraInfo();

  // Disks. A disk group is a flash device, whose name also names the group, and the capacity disks
  // behind it, which may be flash devices, too. All disks but those of `GetDiskInfo` are this
  // host's. A string `ssd` or `disk` is a device name, a string `uuid` a UUID.

  /// Fills `info` for any disk that `GetDiskUuids` or a handle of `luns` names; throws when no such
  /// disk is known. A listing then ends, and shows only the disks before it. `luns` is the list
  /// from `GetDovraDisks`, to match device data to the UUID.
  virtual void GetDiskInfo(const Uuid& disk, const DiskLuns& luns, DovraDiskInfo& info) = 0;
  /// Partitions and formats empty disks. Makes a disk group of `ssd` and `disks` or, if `ssd` has a
  /// group already, adds `disks` to it. Callers pass at least one in `disks`. `ssd` is a flash
  /// device without the tag of `AddCapacityFlashTag`; each of `disks` is a flash device with it, or
  /// no flash device. Throws when a disk is unknown, or of another kind, or has partitions and is
  /// not the `ssd` of a group.
  virtual void AddDisks(const std::string& ssd, const std::vector<std::string>& disks) = 0;
  /// Puts the group's disks back into use.
  virtual void MountDiskGroup(const std::string& ssd) = 0;
  /// Mounts one capacity disk or, given the UUID of a group's flash device, the group.
  virtual void MountDiskByUuid(const std::string& uuid) = 0;
  /// Mounts one capacity disk or, given a group's flash device, the group.
  virtual void MountDisk(const std::string& disk) = 0;
  /// Takes one capacity disk from the cluster; the data still on it is lost. The mode says which
  /// data is moved to other disks first: "NoAction", "EnsureObjectAccessibility" or
  /// "EvacuateAllData"; empty for the library's default. Throws for a group's flash device and for
  /// its last capacity disk.
  virtual void RemoveDisk(const std::string& disk, const std::string& evacuationMode) = 0;
  /// Takes a flash device and every capacity disk behind it from the cluster, as `RemoveDisk` does.
  virtual void RemoveDiskGroup(const std::string& ssd, const std::string& evacuationMode) = 0;
  /// Takes the group's disks out of use; their data stays on them.
  virtual void UnmountDiskGroup(const std::string& ssd) = 0;
  /// Unmounts one capacity disk or, given a group's flash device, the group.
  virtual void UnmountDisk(const std::string& disk) = 0;
  /// Unmounts one capacity disk or, given the UUID of a group's flash device, the group.
  virtual void UnmountDiskByUuid(const std::string& uuid) = 0;
  /// Does what `RemoveDisk` does or, given the UUID of a group's flash device, what
  /// `RemoveDiskGroup` does.
  virtual void RemoveDiskByUuid(const std::string& uuid, const std::string& evacuationMode) = 0;
  /// Sets whether the service claims empty disks by itself, from the next storage event on.
  virtual void SetAutoClaimMode(bool enabled) = 0;
  virtual bool GetAutoClaimMode() = 0;

  // The cluster as this host sees it.

  /// Sets the fault domain with which the witness sides when the two sites of a stretched cluster
  /// lose each other. The name has 1 to 256 characters. Called only on a witness.
  virtual void SetPreferredFaultDomain(const std::string& name) = 0;
  /// Returns whether this host is the cluster's witness. Called only on a host in a cluster.
  virtual bool IsLocalNodeWitness() = 0;
  /// Returns which configuration of the cluster this host has. Called only on a host in a cluster.
  virtual DovraConfigGeneration GetConfigGeneration() = 0;

  // The storage network and the peers reached by unicast.

  /// Takes "dovra" or "witness" traffic off the interface. One that carries no more traffic leaves
  /// the storage network. Callers make two calls on one object, for "dovra" and then for "witness",
  /// whatever the interface carries. Traffic that it does not carry is no error. For an interface
  /// that is not configured, the call for "dovra" throws, and the call for "witness" does nothing,
  /// because the one before may have removed it. With `force` neither throws for that: both notify
  /// the storage service all the same.
  virtual void RemoveKnic(const std::string& name, bool force, const std::string& trafficType) = 0;
  /// Makes the storage service take over the changed list of agents. Called after adding a node,
  /// not after adding a witness, which the library takes over itself, and where
  /// `RemoveUnicastAgent` asks for it.
  virtual void RefreshUnicastAgents() = 0;
  /// Adds a peer that this host reaches by unicast. The nil UUID, written out in 36 characters,
  /// stands for a witness whose UUID is not known. Callers check that there is no witness yet. The
  /// library throws for a malformed UUID, for the nil UUID of an agent that is no witness, and for
  /// a UUID or an address with its port that another agent has. `port` is any 32-bit number.
  /// `boundInterface` counts only with `hasBoundInterface`. `extra` is for the library; callers
  /// pass the empty string.
  virtual void AddUnicastAgent(const std::string& nodeUuid, bool isWitness, bool supportsUnicast,
                               const DovraIpAddress& address, std::int32_t port,
                               bool hasBoundInterface, const std::string& boundInterface,
                               const std::string& extra) = 0;
  /// Removes the peer at the address and port. The nil UUID stands for any peer there; whether
  /// another UUID must match is the library's choice. Throws when there is none. Returns false when
  /// the caller has to call `RefreshUnicastAgents`.
  virtual bool RemoveUnicastAgent(const std::string& nodeUuid, const DovraIpAddress& address,
                                  std::int32_t port) = 0;
  /// Fills `entries`, one for each agent: node UUID, whether it is a witness, whether it supports
  /// unicast, address, port, bound interface, joined by ";". The two flags and the port are decimal
  /// numbers, and a flag of 0 means no. The interface is empty when none is bound; it takes the
  /// rest of the entry and may hold ";". An entry with fewer than five ";" is malformed.
  virtual void GetUnicastAgents(std::vector<std::string>& entries) = 0;
  /// Fills `witnesses` with a string for each agent that is a witness, only to be shown.
  virtual void GetUnicastWitnesses(std::vector<std::string>& witnesses) = 0;
  /// Puts the persisted interfaces into effect again.
  virtual void RestoreNetworkConfig() = 0;
  /// Puts the persisted membership into effect again. `boot` is true while the host boots.
  virtual void RestoreClusterConfig(bool boot) = 0;
  /// Removes every interface from the storage network.
  virtual void ClearNetworkConfig() = 0;
  /// Removes all datastores but the default one. Throws outside a cluster.
  virtual void ClearDatastores() = 0;

  // Membership. Join and create are called only on a host in no cluster, leave only on one in a
  // cluster.

  /// Makes this host a member. If no cluster has the UUID, this creates it, but throws for a
  /// witness. `preferredFaultDomain` has 1 to 256 characters for a witness and is empty for other
  /// hosts. With `wait` it returns when the host has joined. `reserved` is false.
  virtual void JoinCluster(const Uuid& cluster, bool asWitness,
                           const std::string& preferredFaultDomain, bool wait, bool reserved) = 0;
  /// Creates a cluster with this UUID and joins this host to it. Callers pass enable = true and
  /// reserved = false; other values have no meaning yet. The library adds the default datastore to
  /// every new cluster.
  virtual void CreateCluster(const std::string& uuid, bool enable, bool reserved) = 0;
  /// Ends this host's membership. Its disks, network, agents, policies and fault domain stay;
  /// datastores belong to the cluster. `reserved` is false.
  virtual void LeaveCluster(bool reserved) = 0;
  /// Returns a record that lives as long as this object and does not change until the next call of
  /// this function.
  virtual const DovraClusterConfig& GetClusterConfig() = 0;
  /// Puts this host into the fault domain. The name has 1 to 256 bytes: callers count bytes here,
  /// and characters in the preferred fault domain's name.
  virtual void SetFaultDomain(const std::string& name) = 0;
  /// Puts this host into the default fault domain, which means into none.
  virtual void ResetFaultDomain() = 0;
  /// Empty when the host is in the default fault domain.
  virtual std::string GetFaultDomainName() = 0;
  /// Marks a flash device for use as a capacity disk.
  virtual void AddCapacityFlashTag(const std::string& disk) = 0;
  virtual void RemoveCapacityFlashTag(const std::string& disk) = 0;

  // Policies and datastores. `policyClass` is spelled as `StringToDovraPolicyClass` takes it. An
  // empty UUID stands for the default datastore in `GetDatastoreName` and `SetDatastoreName`, which
  // throw for a UUID that no datastore has, and outside a cluster.

  /// Removes the default policy of every class.
  virtual void ClearPolicyDefaults() = 0;
  virtual std::string GetDatastoreName(const std::string& uuid) = 0;
  virtual void SetDatastoreName(const std::string& uuid, const std::string& name) = 0;
  /// Throws outside a cluster, when the name is empty or taken, and when the UUID is malformed or
  /// taken. The datastore is not the default one.
  virtual void AddDatastore(const DovraDatastore& datastore) = 0;
  /// Throws for the empty UUID, for that of the default datastore, and for one that no datastore
  /// has. `reserved` is true.
  virtual void RemoveDatastore(const std::string& uuid, bool reserved) = 0;
  /// Fills `datastores`, in the order in which they are shown; with none outside a cluster.
  virtual void GetDatastores(Datastores& datastores) = 0;
  /// Returns whether the interface is configured for this type of traffic, "dovra" or "witness".
  virtual bool IsKnicInUse(const std::string& name, const std::string& trafficType) = 0;
  /// Fills `disks` with the disks that the storage service knows of, on this host or others, in any
  /// order. `GetDiskInfo` answers for each of them. A listing shows these disks and those of
  /// `GetDovraDisks`, each once; a listing of a single disk finds it only among the latter.
  virtual void GetDiskUuids(std::vector<Uuid>& disks) = 0;
  /// Sets the policy of objects of the class that are made without one. Throws when the class or
  /// the policy is not valid.
  virtual void SetPolicyDefault(const std::string& policyClass, const std::string& policy) = 0;
  /// Empty when the class has none.
  virtual std::string GetPolicyDefault(const std::string& policyClass) = 0;

  // Resynchronisation, in Mbps. A throttle of 0 means no throttling; callers set 0 to 512.

  virtual std::int64_t GetResyncThrottle() = 0;
  virtual void SetResyncThrottle(std::int64_t level) = 0;
  /// Returns the bandwidth of the disk group with the heaviest resync workload.
  virtual std::int64_t GetResyncBandwidth() = 0;
};

/// The newer network operations. `GetDovraInfo` returns an object that is a `DovraInfo2` where the
/// library has them; callers find out by `dynamic_cast`. A library without them defines the classes
/// all the same, because the plug-in refers to them when it is loaded.
class DovraInfo2 : public virtual DovraInfo {
 public:
  ~DovraInfo2() override;

  /// Stores the entry and replaces any other of the same interface. Ports and TTL are any 32-bit
  /// number, the groups' addresses any address of the slot's family, and the UUID is empty: the
  /// library keeps or assigns one.
  virtual void ConfigureKnic(const DovraKnicConfig2& config) = 0;
  /// Returns every entry configured, in the order in which they are shown.
  virtual std::vector<std::unique_ptr<DovraKnicConfig2>> GetKnicConfigs() = 0;
};

}  // namespace HostCtl::Dovra

#pragma GCC visibility pop
