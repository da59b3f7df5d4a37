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
    {"dovra cluster get", "", R"(# Print one field, for a script.
autocli --formatter csv --no-header --fields "Sub-Cluster UUID" dovra cluster get)"},
    {"dovra cluster restore", "", R"(# Take the host back into its cluster after a boot.
autocli dovra cluster restore)"},
    {"dovra cluster unicastagent add", "uuid=host-uuids,bound-interface-name=interfaces",
     R"(# Add the witness, at the default port.
autocli dovra cluster unicastagent add --addr 192.0.2.20
# Add another host of the cluster.
autocli dovra cluster unicastagent add --type node --addr 192.0.2.12 --supports-unicast true --uuid 52c7a9d2-3f18-4b6e-a0d4-71e5c8b29f06)"},
    {"dovra cluster unicastagent remove", "uuid=agent-uuids,addr=agent-addresses",
     R"(# Remove the agent at this address.
autocli dovra cluster unicastagent remove --addr 192.0.2.20)"},
    {"dovra cluster preferredfaultdomain set", "preferred-fault-domain-name=fault-domains",
     R"(# Prefer another site, on the witness.
autocli --host host2 dovra cluster preferredfaultdomain set --preferred-fault-domain-name site-b)"},
    {"dovra trace set", "", R"(# Keep ten files of 64 MB each.
autocli dovra trace set --numfiles 10 --size 64
# Restore the defaults.
autocli dovra trace set --reset true)"},
    {"dovra faultdomain set", "", R"(# Put this host into the fault domain of site A.
autocli dovra faultdomain set --fdname site-a)"},
    {"dovra resync throttle set", "", R"(# Limit resync to 100 Mbps.
autocli dovra resync throttle set --level 100
# Remove the limit.
autocli dovra resync throttle set --level 0)"},
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
