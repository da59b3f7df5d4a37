// The control library's information objects: the host's part in the storage cluster, read and
// changed.
//
// - The order of virtual functions is part of the ABI; in these two classes the destructor is the
//   first. If a library has further functions between them, declare those here in their places, and
//   build the plug-in with that header.
// - Every operation throws `DovraCtlException` when the library refuses it or fails. Its message is
//   shown to the administrator.
// - Operations are called on hosts in a cluster and on others, unless noted.
// - Objects are used by one thread, for the length of one call of a command.
// - Lists and records that an operation fills are empty when it is called, so it may assign to them
//   or append. Handles in lists may be null; callers skip those.
// - Ports, UUID strings, names and policies are as the user typed them, unchecked unless noted. The
//   library throws for those that it does not accept. For a port or TTL beyond 32 bits, callers
//   pass the nearest number of 32 bits. For a port, TTL or group that the user did not give, they
//   pass a usable default, or the present value of an interface that they reconfigure.
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
  // behind it, which may be flash devices, too. These operations act on disks of this host only;
  // `GetDiskInfo` also answers for those of other hosts. A string `ssd` or `disk` is a device name,
  // a string `uuid` a UUID.

  /// Fills `info` for any disk that `GetDiskUuids` or a handle of `luns` names; throws when no such
  /// disk is known, which ends a listing: it shows the disks up to there. `luns` is the list from
  /// `GetDovraDisks`, to match device data to the UUID.
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
  /// Returns the version of the cluster's configuration that this host has. Called only on a host
  /// in a cluster.
  virtual DovraConfigGeneration GetConfigGeneration() = 0;

  // The storage network, the peers reached by unicast, restoring and clearing.

  /// Takes "dovra" or "witness" traffic off the interface. An interface without traffic leaves the
  /// storage network. Does nothing for traffic that the interface does not carry. When the
  /// interface is not configured, throws for "dovra" and does nothing for "witness": callers make
  /// both calls, "dovra" first, on one object, and the first may have removed the interface. With
  /// `force` it does not throw when the interface is not configured, and every call notifies the
  /// storage service.
  virtual void RemoveKnic(const std::string& name, bool force, const std::string& trafficType) = 0;
  /// Makes the storage service load the changed list of agents. Called after adding a node and when
  /// `RemoveUnicastAgent` returns false. After adding a witness, the library does it itself.
  virtual void RefreshUnicastAgents() = 0;
  /// Adds a peer that this host reaches by unicast. The nil UUID, written out in 36 characters,
  /// stands for a witness whose UUID is not known. Before adding a witness, callers check that
  /// there is none. Throws for a malformed UUID, for the nil UUID of an agent that is no witness,
  /// and for a UUID, or an address with its port, that another agent has. `port` is any 32-bit
  /// number. `boundInterface` counts only with `hasBoundInterface`. `extra` is reserved; callers
  /// pass the empty string.
  virtual void AddUnicastAgent(const std::string& nodeUuid, bool isWitness, bool supportsUnicast,
                               const DovraIpAddress& address, std::int32_t port,
                               bool hasBoundInterface, const std::string& boundInterface,
                               const std::string& extra) = 0;
  /// Removes the peer at the address and port. The nil UUID matches any peer; whether another
  /// UUID must match is the library's choice. Throws when there is none. Returns false when the
  /// caller has to call `RefreshUnicastAgents`.
  virtual bool RemoveUnicastAgent(const std::string& nodeUuid, const DovraIpAddress& address,
                                  std::int32_t port) = 0;
  /// Fills `entries`, one for each agent: node UUID, whether it is a witness, whether it supports
  /// unicast, address, port, bound interface, joined by ";". The two flags and the port are decimal
  /// numbers, and a flag of 0 means no. The interface is empty when none is bound; it takes the
  /// rest of the entry and may hold ";". An entry with fewer than five ";" is malformed.
  virtual void GetUnicastAgents(std::vector<std::string>& entries) = 0;
  /// Fills `witnesses` with a string for each agent that is a witness, which callers only show.
  virtual void GetUnicastWitnesses(std::vector<std::string>& witnesses) = 0;
  /// Puts the persisted interfaces into effect again.
  virtual void RestoreNetworkConfig() = 0;
  /// Puts the persisted membership into effect again. `boot` is true while the host boots.
  virtual void RestoreClusterConfig(bool boot) = 0;
  /// Removes every interface from the storage network.
  virtual void ClearNetworkConfig() = 0;
  /// Removes all datastores but the default one. Throws outside a cluster.
  virtual void ClearDatastores() = 0;

  // Membership, fault domain and tags. Join and create are called only on a host in no cluster,
  // leave only on one in a cluster.

  /// Makes this host a member. If no cluster has the UUID, this creates it, but throws for a
  /// witness. `preferredFaultDomain` has 1 to 256 characters for a witness and is empty for other
  /// hosts. With `wait` it returns when the host has joined. `reserved` is false.
  virtual void JoinCluster(const Uuid& cluster, bool asWitness,
                           const std::string& preferredFaultDomain, bool wait, bool reserved) = 0;
  /// Creates a cluster with this UUID and joins this host to it. Callers pass enable = true and
  /// reserved = false; other values have no meaning yet. The library adds the default datastore to
  /// every new cluster.
  virtual void CreateCluster(const std::string& uuid, bool enable, bool reserved) = 0;
  /// Ends this host's membership. Its disks, network, agents, policies and fault domain stay; the
  /// cluster keeps its datastores. `reserved` is false.
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

  // Policies, datastores and others. `policyClass` is spelled as `StringToDovraPolicyClass` takes
  // it. An empty UUID stands for the default datastore in `GetDatastoreName` and
  // `SetDatastoreName`, which throw for a UUID that no datastore has, and outside a cluster.

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
  /// Fills `datastores`, in the order in which they are shown. It stays empty outside a cluster.
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
/// library has them; callers find out by `dynamic_cast`. Every library defines this class and
/// `DovraKnicConfig2`, because the plug-in is linked with both.
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
