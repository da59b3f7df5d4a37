// A cluster's datastores.

#include "corectl/info/LabInfo.h"
#include "corectl/rules/CanonicalUuid.h"
#include "corectl/rules/Clusters.h"
#include "corectl/rules/Refuse.h"
#include "platform/corectl/DovraUtil.h"
#include "store/Uuids.h"

namespace Lab {

using CoreCtl::Dovra::DovraUtil;
using HostCtl::Dovra::DovraDatastore;

namespace {

constexpr std::size_t kMaxName = 128;  // characters

/// Returns the datastore, or for an empty UUID the default one. Refuses when there is none.
DatastoreRow RequireDatastore(Store& store, const HostRow& host, const std::string& uuid) {
  const std::string canonical = uuid.empty() ? "" : CanonicalUuid(uuid);
  for (DatastoreRow& datastore :
       store.List<DatastoreRow>(RequireRunningMember(store, host).cluster)) {
    if (canonical.empty() ? datastore.isDefault : datastore.uuid == canonical) {
      return std::move(datastore);
    }
  }
  Refuse(canonical.empty() ? "The cluster has no default datastore."
                           : "The cluster has no datastore " + canonical + ".");
}

void RequireFreeName(Store& store, const std::string& cluster, const std::string& name) {
  if (name.empty() || DovraUtil::UTF8StringCharLength(name) > kMaxName) {
    Refuse("The datastore's name must have 1 to " + std::to_string(kMaxName) + " characters.");
  }
  for (const DatastoreRow& datastore : store.List<DatastoreRow>(cluster)) {
    if (datastore.name == name) {
      Refuse("The name \"" + name + "\" is taken by datastore " + datastore.uuid + ".");
    }
  }
}

}  // namespace

void LabInfo::GetDatastores(Datastores& datastores) {
  host_.Read("GetDatastores", [&](Store& store, const HostRow& host) {
    datastores.clear();
    const auto member = FindRunningMember(store, host);
    if (!member) return;
    const ClusterRow cluster = RequireCluster(store, member->cluster);
    for (const DatastoreRow& row : store.List<DatastoreRow>(cluster.uuid)) {
      datastores.push_back(std::make_shared<DovraDatastore>(row.uuid, row.name, row.isDefault));
    }
  });
}

std::string LabInfo::GetDatastoreName(const std::string& uuid) {
  return host_.Read("GetDatastoreName", [&](Store& store, const HostRow& host) {
    return RequireDatastore(store, host, uuid).name;
  });
}

void LabInfo::SetDatastoreName(const std::string& uuid, const std::string& name) {
  host_.Change("SetDatastoreName", [&](Store& store, const HostRow& host) {
    DatastoreRow datastore = RequireDatastore(store, host, uuid);
    if (datastore.name == name) return;
    RequireQuorum(store, host, datastore.cluster);
    RequireFreeName(store, datastore.cluster, name);
    datastore.name = name;
    store.Save(datastore);
    BumpGeneration(store, datastore.cluster, host);
  });
}

void LabInfo::AddDatastore(const DovraDatastore& datastore) {
  host_.Change("AddDatastore", [&](Store& store, const HostRow& host) {
    const std::string uuid = CanonicalUuid(datastore.GetUuid());
    const std::string cluster = RequireRunningMember(store, host).cluster;
    if (uuid == kNilUuid) Refuse("The nil UUID names no datastore.");
    RequireQuorum(store, host, cluster);
    if (store.Find<DatastoreRow>(uuid)) Refuse("Datastore " + uuid + " exists already.");
    RequireFreeName(store, cluster, datastore.GetName());
    store.Save(DatastoreRow{uuid, cluster, datastore.GetName(), false});
    BumpGeneration(store, cluster, host);
  });
}

void LabInfo::RemoveDatastore(const std::string& uuid, bool) {
  host_.Change("RemoveDatastore", [&](Store& store, const HostRow& host) {
    if (uuid.empty()) Refuse("The UUID of the datastore to be removed is missing.");
    const DatastoreRow datastore = RequireDatastore(store, host, uuid);
    if (datastore.isDefault) {
      Refuse("Datastore " + datastore.uuid + " is the default datastore; it cannot be removed.");
    }
    RequireQuorum(store, host, datastore.cluster);
    store.Remove<DatastoreRow>(datastore.uuid);
    BumpGeneration(store, datastore.cluster, host);
  });
}

void LabInfo::ClearDatastores() {
  host_.Change("ClearDatastores", [](Store& store, const HostRow& host) {
    const std::string cluster = RequireRunningMember(store, host).cluster;
    const auto datastores = store.List<DatastoreRow>(cluster);
    if (std::ranges::all_of(datastores, &DatastoreRow::isDefault)) return;
    RequireQuorum(store, host, cluster);
    for (const DatastoreRow& datastore : datastores) {
      if (!datastore.isDefault) store.Remove<DatastoreRow>(datastore.uuid);
    }
    BumpGeneration(store, cluster, host);
  });
}

}  // namespace Lab
