#include "autocli/CommandNotes.h"

#include <algorithm>

#include "baselibs/Strings.h"
#include "clitools/Nodes.h"

namespace AutoCliProgram {

using CliTools::AutoCli::CommandSpec;

namespace {

/// The notes on a command below `dovra`.
struct DovraNotes {
  std::string_view path;
  const char* values;    ///< as in the metadata field
  const char* examples;  ///< as in the metadata field
};

// Not metadata, because the commands' constructors set only what their interface defines.
constexpr DovraNotes kNotes[] = {
    {"dovra policy getdefault", "", R"(# Show the default policy of every class.
autocli dovra policy getdefault
# Show the default policy of virtual disks.
autocli dovra policy getdefault --policy-class vdisk)"},
    {"dovra policy setdefault", "", R"(# Let virtual disks survive two failures.
autocli dovra policy setdefault --policy-class vdisk --policy hostFailuresToTolerate=2
# Create swap objects even when resources are short.
autocli dovra policy setdefault -c vmswap -p "hostFailuresToTolerate=1, forceProvisioning=1")"},
    {"dovra policy cleardefault", "", R"(# Restore the default policy of every class.
autocli dovra policy cleardefault)"},
    {"dovra datastore name get", "uuid=datastores", R"(# Show the name of the default datastore.
autocli dovra datastore name get)"},
    {"dovra datastore name set", "uuid=datastores", R"(# Rename the default datastore.
autocli dovra datastore name set --newname production
# Rename another datastore.
autocli dovra datastore name set --uuid 521f7b14-60a2-4d2b-9c35-8e14a1d9c0f3 --newname archive)"},
    {"dovra datastore add", "", R"(# Add a datastore with a new UUID.
autocli dovra datastore add --name backup)"},
    {"dovra datastore remove", "uuid=datastores",
     R"(# Remove the datastore with this UUID, which "dovra datastore list" shows.
autocli dovra datastore remove --uuid 521f7b14-60a2-4d2b-9c35-8e14a1d9c0f3)"},
    {"dovra datastore list", "", R"(# List the datastores of the cluster.
autocli dovra datastore list)"},
    {"dovra datastore clear", "", R"(# Remove all datastores but the default one.
autocli dovra datastore clear)"},
    {"dovra storage add", "ssd=empty-flash-disks,disks=empty-capacity-disks",
     R"(# Create a disk group of a flash disk and two capacity disks.
autocli dovra storage add --ssd mpx.xhba1:C0:T0:L0 --disks mpx.xhba2:C0:T0:L0 --disks mpx.xhba2:C0:T1:L0)"},
    {"dovra storage remove",
     "ssd=cache-disks,disk=claimed-disks,uuid=claimed-disk-uuids,evacuation-mode=evacuation-modes",
     R"(# Remove a disk after its data has been moved.
autocli dovra storage remove --disk mpx.xhba2:C0:T1:L0 --evacuation-mode evacuateAllData
# Remove a disk group, named by its flash disk.
autocli dovra storage remove --ssd mpx.xhba1:C0:T0:L0)"},
    {"dovra storage list", "device=claimed-disks,uuid=claimed-disk-uuids",
     R"(# List the disks that the cluster uses, on this host and others.
autocli dovra storage list
# Show which of them are mounted, as a table.
autocli --formatter table --fields "Device,Is Mounted" dovra storage list)"},
    {"dovra storage automode get", "", R"(# Show whether empty disks are claimed automatically.
autocli dovra storage automode get)"},
    {"dovra storage automode set", "", R"(# Claim disks on demand only.
autocli dovra storage automode set --enabled false)"},
    {"dovra storage diskgroup mount", "ssd=cache-disks,disk=claimed-disks,uuid=claimed-disk-uuids",
     R"(# Mount a disk group, named by its flash disk.
autocli dovra storage diskgroup mount --ssd mpx.xhba1:C0:T0:L0)"},
    {"dovra storage diskgroup unmount",
     "ssd=cache-disks,disk=claimed-disks,uuid=claimed-disk-uuids",
     R"(# Unmount a disk group, named by its flash disk.
autocli dovra storage diskgroup unmount --ssd mpx.xhba1:C0:T0:L0
# Unmount a single disk.
autocli dovra storage diskgroup unmount --disk mpx.xhba2:C0:T1:L0)"},
    {"dovra storage tag add", "disk=flash-disks",
     R"(# Use a flash disk for capacity, as an all-flash host does.
autocli dovra storage tag add --tag capacityFlash --disk mpx.xhba1:C0:T1:L0)"},
    {"dovra storage tag remove", "disk=flash-disks", R"(# Use a flash disk as a cache again.
autocli dovra storage tag remove --tag capacityFlash --disk mpx.xhba1:C0:T1:L0)"},
    {"dovra network remove", "interface-name=interfaces", R"(# Remove an interface, even one in use.
autocli dovra network remove --interface-name knic0 --force)"},
    {"dovra network restore", "", R"(# Restore the configured interfaces, as at boot.
autocli dovra network restore)"},
    {"dovra network clear", "", R"(# Remove all interfaces.
autocli dovra network clear)"},
    {"dovra network list", "", R"(# List interfaces with their multicast groups and ports.
autocli dovra network list)"},
    {"dovra network ip add", "interface-name=interfaces,traffic-type=traffic-types",
     R"(# Add an interface with the default groups and ports.
autocli dovra network ip add --interface-name knic0
# Add an interface for the traffic with a witness.
autocli dovra network ip add -i knic1 --traffic-type witness)"},
    {"dovra network ip remove", "interface-name=interfaces", R"(# Remove an interface.
autocli dovra network ip remove --interface-name knic1)"},
    {"dovra network ip set", "interface-name=interfaces,traffic-type=traffic-types",
     R"(# Let multicast packets pass more routers.
autocli dovra network ip set --interface-name knic0 --multicast-ttl 10)"},
    {"dovra network ipv4 add", "interface-name=interfaces,traffic-type=traffic-types",
     R"(# Add an interface with the default groups and ports.
autocli dovra network ipv4 add --interface-name knic0)"},
    {"dovra network ipv4 remove", "interface-name=interfaces", R"(# Remove an interface.
autocli dovra network ipv4 remove --interface-name knic1)"},
    {"dovra network ipv4 set", "interface-name=interfaces,traffic-type=traffic-types",
     R"(# Let multicast packets pass more routers.
autocli dovra network ipv4 set --interface-name knic0 --multicast-ttl 10)"},
    {"dovra cluster join", "cluster-uuid=clusters,witness-preferred-fault-domain=fault-domains",
     R"(# Join the cluster that another host shows as Sub-Cluster UUID.
autocli --host host2 dovra cluster join --cluster-uuid 5238f8f0-96a1-4c2e-8d77-0c4bb4f3a1e2
# Join as the witness of two sites.
autocli --host host2 dovra cluster join -u 5238f8f0-96a1-4c2e-8d77-0c4bb4f3a1e2 --witness-node --witness-preferred-fault-domain site-a)"},
    {"dovra cluster leave", "", R"(# Leave the cluster; the other hosts stay in it.
autocli dovra cluster leave)"},
    {"dovra cluster get", "", R"(# Show what this host knows of its cluster.
autocli dovra cluster get
# Print one field, for a script.
autocli --formatter csv --no-header --fields "Sub-Cluster UUID" dovra cluster get)"},
    {"dovra cluster restore", "", R"(# Take the host back into its cluster after a boot.
autocli dovra cluster restore)"},
    {"dovra cluster new", "", R"(# Create a cluster of this host, which others can join.
autocli dovra cluster new)"},
    {"dovra cluster unicastagent add", "uuid=host-uuids,bound-interface-name=interfaces",
     R"(# Add the witness, at the default port.
autocli dovra cluster unicastagent add --addr 192.0.2.20
# Add another host of the cluster.
autocli dovra cluster unicastagent add --type node --addr 192.0.2.12 --supports-unicast true --uuid 52c7a9d2-3f18-4b6e-a0d4-71e5c8b29f06)"},
    {"dovra cluster unicastagent remove", "uuid=agent-uuids,addr=agent-addresses",
     R"(# Remove the agent at this address.
autocli dovra cluster unicastagent remove --addr 192.0.2.20)"},
    {"dovra cluster unicastagent list", "", R"(# List the agents.
autocli dovra cluster unicastagent list)"},
    {"dovra cluster unicastagent clear", "", R"(# Remove all agents.
autocli dovra cluster unicastagent clear)"},
    {"dovra cluster preferredfaultdomain get", "",
     R"(# Show the site that the witness prefers when the sites are split.
autocli dovra cluster preferredfaultdomain get)"},
    {"dovra cluster preferredfaultdomain set", "preferred-fault-domain-name=fault-domains",
     R"(# Prefer another site, on the witness.
autocli --host host2 dovra cluster preferredfaultdomain set --preferred-fault-domain-name site-b)"},
    {"dovra trace set", "", R"(# Keep ten files of 64 MB each.
autocli dovra trace set --numfiles 10 --size 64
# Restore the defaults.
autocli dovra trace set --reset true)"},
    {"dovra trace get", "", R"(# Show where the trace files are and how large they get.
autocli dovra trace get)"},
    {"dovra maintenancemode cancel", "", R"(# Cancel entering maintenance mode.
autocli dovra maintenancemode cancel)"},
    {"dovra faultdomain set", "", R"(# Put this host into the fault domain of site A.
autocli dovra faultdomain set --fdname site-a)"},
    {"dovra faultdomain get", "", R"(# Show the fault domain of this host.
autocli dovra faultdomain get)"},
    {"dovra faultdomain reset", "", R"(# Make this host a fault domain by itself again.
autocli dovra faultdomain reset)"},
    {"dovra resync throttle set", "", R"(# Limit resync to 100 Mbps.
autocli dovra resync throttle set --level 100
# Remove the limit.
autocli dovra resync throttle set --level 0)"},
    {"dovra resync throttle get", "", R"(# Show the limit in force.
autocli dovra resync throttle get)"},
    {"dovra resync bandwidth get", "", R"(# Show the bandwidth that resync uses now.
autocli dovra resync bandwidth get)"},
};

/// Returns the metadata field, or the note in its place.
std::string FieldOf(const CommandSpec& command, const char* field, const char* DovraNotes::*note) {
  const std::string path = CliTools::PathOf(command);
  const auto* const notes = std::ranges::find(kNotes, path, &DovraNotes::path);
  return notes == std::end(kNotes) ? command.GetMetaDataField(field) : notes->*note;
}

}  // namespace

std::string ExamplesOf(const CommandSpec& command) {
  return FieldOf(command, "examples", &DovraNotes::examples);
}

std::string ValueListOf(const CommandSpec& command, std::string_view parameter) {
  const std::string field = FieldOf(command, "values", &DovraNotes::values);
  for (const std::string_view pair : BaseLibs::Split(field, ',')) {
    const std::size_t equals = pair.find('=');
    if (pair.substr(0, equals) != parameter || equals == std::string_view::npos) continue;
    return std::string(pair.substr(equals + 1));
  }
  return {};
}

}  // namespace AutoCliProgram
