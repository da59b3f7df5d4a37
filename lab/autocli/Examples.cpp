#include "autocli/Examples.h"

#include <algorithm>

namespace AutoCliProgram {

namespace {

// Rows of one command stand together.
constexpr Example kExamples[] = {
    {"dovra policy getdefault", "The defaults of every class.", "autocli dovra policy getdefault"},
    {"dovra policy getdefault", "The default for virtual disks.",
     "autocli dovra policy getdefault --policy-class vdisk"},
    {"dovra policy setdefault", "Virtual disks survive two failures.",
     "autocli dovra policy setdefault --policy-class vdisk --policy hostFailuresToTolerate=2"},
    {"dovra policy setdefault", "Swap objects are made even when resources are short.",
     "autocli dovra policy setdefault -c vmswap -p "
     "\"hostFailuresToTolerate=1, forceProvisioning=1\""},
    {"dovra policy cleardefault", "Every class back to what it was.",
     "autocli dovra policy cleardefault"},

    {"dovra datastore name get", "The name of the default datastore.",
     "autocli dovra datastore name get"},
    {"dovra datastore name set", "Another name for the default datastore.",
     "autocli dovra datastore name set --newname production"},
    {"dovra datastore name set", "Another name for one of several datastores.",
     "autocli dovra datastore name set --uuid 521f7b14-60a2-4d2b-9c35-8e14a1d9c0f3 "
     "--newname archive"},
    {"dovra datastore add", "A datastore whose UUID is made up for it.",
     "autocli dovra datastore add --name backup"},
    {"dovra datastore remove", "The datastore with the UUID that \"dovra datastore list\" shows.",
     "autocli dovra datastore remove --uuid 521f7b14-60a2-4d2b-9c35-8e14a1d9c0f3"},
    {"dovra datastore list", "Every datastore of the cluster.", "autocli dovra datastore list"},
    {"dovra datastore clear", "Only the default datastore stays.", "autocli dovra datastore clear"},

    {"dovra storage add", "A disk group: one flash disk and two others behind it.",
     "autocli dovra storage add --ssd mpx.xhba1:C0:T0:L0 --disks mpx.xhba2:C0:T0:L0 "
     "--disks mpx.xhba2:C0:T1:L0"},
    {"dovra storage remove", "One disk, when its data is elsewhere.",
     "autocli dovra storage remove --disk mpx.xhba2:C0:T1:L0 --evacuation-mode evacuateAllData"},
    {"dovra storage remove", "A whole disk group, named by its flash disk.",
     "autocli dovra storage remove --ssd mpx.xhba1:C0:T0:L0"},
    {"dovra storage list", "Every disk that the cluster uses, here and on other hosts.",
     "autocli dovra storage list"},
    {"dovra storage list", "Which of them are mounted, as a table.",
     "autocli --formatter table --fields \"Device,Is Mounted\" dovra storage list"},
    {"dovra storage automode get", "Whether empty disks are claimed by themselves.",
     "autocli dovra storage automode get"},
    {"dovra storage automode set", "From now on, disks are claimed only on demand.",
     "autocli dovra storage automode set --enabled false"},
    {"dovra storage diskgroup mount", "A disk group, named by its flash disk.",
     "autocli dovra storage diskgroup mount --ssd mpx.xhba1:C0:T0:L0"},
    {"dovra storage diskgroup unmount", "A disk group, named by its flash disk.",
     "autocli dovra storage diskgroup unmount --ssd mpx.xhba1:C0:T0:L0"},
    {"dovra storage diskgroup unmount", "A single disk.",
     "autocli dovra storage diskgroup unmount --disk mpx.xhba2:C0:T1:L0"},
    {"dovra storage tag add", "A flash disk that is to hold data, as in an all-flash host.",
     "autocli dovra storage tag add --tag capacityFlash --disk mpx.xhba1:C0:T1:L0"},
    {"dovra storage tag remove", "A flash disk that is to be a cache again.",
     "autocli dovra storage tag remove --tag capacityFlash --disk mpx.xhba1:C0:T1:L0"},

    {"dovra network remove", "The interface, whether it is in use or not.",
     "autocli dovra network remove --interface-name knic0 --force"},
    {"dovra network restore", "As at boot: what was configured before takes effect again.",
     "autocli dovra network restore"},
    {"dovra network clear", "No interface is left.", "autocli dovra network clear"},
    {"dovra network list", "Interfaces, their multicast groups and ports.",
     "autocli dovra network list"},
    {"dovra network ip add", "An interface with the default groups and ports.",
     "autocli dovra network ip add --interface-name knic0"},
    {"dovra network ip add", "An interface for the traffic with a witness.",
     "autocli dovra network ip add -i knic1 --traffic-type witness"},
    {"dovra network ip remove", "The storage network goes without this interface.",
     "autocli dovra network ip remove --interface-name knic1"},
    {"dovra network ip set", "Packets that pass more routers.",
     "autocli dovra network ip set --interface-name knic0 --multicast-ttl 10"},
    {"dovra network ipv4 add", "An interface with the default groups and ports.",
     "autocli dovra network ipv4 add --interface-name knic0"},
    {"dovra network ipv4 remove", "The storage network goes without this interface.",
     "autocli dovra network ipv4 remove --interface-name knic1"},
    {"dovra network ipv4 set", "Packets that pass more routers.",
     "autocli dovra network ipv4 set --interface-name knic0 --multicast-ttl 10"},

    {"dovra cluster join", "The cluster whose UUID another host shows as Sub-Cluster UUID.",
     "autocli --host host2 dovra cluster join --cluster-uuid 5238f8f0-96a1-4c2e-8d77-0c4bb4f3a1e2"},
    {"dovra cluster join", "As the witness of two sites.",
     "autocli --host host2 dovra cluster join -u 5238f8f0-96a1-4c2e-8d77-0c4bb4f3a1e2 "
     "--witness-node --witness-preferred-fault-domain site-a"},
    {"dovra cluster leave", "This host leaves; the others stay.", "autocli dovra cluster leave"},
    {"dovra cluster get", "What this host knows of its cluster.", "autocli dovra cluster get"},
    {"dovra cluster get", "One field, for a script.",
     "autocli --formatter csv --no-header --fields \"Sub-Cluster UUID\" dovra cluster get"},
    {"dovra cluster restore", "After a boot, the host is in its cluster again.",
     "autocli dovra cluster restore"},
    {"dovra cluster new", "A cluster of this host, which others can join.",
     "autocli dovra cluster new"},
    {"dovra cluster unicastagent add", "The witness, at the default port.",
     "autocli dovra cluster unicastagent add --addr 192.0.2.20"},
    {"dovra cluster unicastagent add", "Another host of the cluster.",
     "autocli dovra cluster unicastagent add --type node --addr 192.0.2.12 --supports-unicast true "
     "--uuid 52c7a9d2-3f18-4b6e-a0d4-71e5c8b29f06"},
    {"dovra cluster unicastagent remove", "The agent at this address.",
     "autocli dovra cluster unicastagent remove --addr 192.0.2.20"},
    {"dovra cluster unicastagent list", "Every agent, as a table.",
     "autocli dovra cluster unicastagent list"},
    {"dovra cluster unicastagent clear", "No agent is left.",
     "autocli dovra cluster unicastagent clear"},
    {"dovra cluster preferredfaultdomain get", "The site that goes on when the two are parted.",
     "autocli dovra cluster preferredfaultdomain get"},
    {"dovra cluster preferredfaultdomain set", "On the witness: the site that is to go on.",
     "autocli --host host2 dovra cluster preferredfaultdomain set "
     "--preferred-fault-domain-name site-b"},

    {"dovra trace set", "Ten files of 64 MB each.",
     "autocli dovra trace set --numfiles 10 --size 64"},
    {"dovra trace set", "Back to the defaults.", "autocli dovra trace set --reset true"},
    {"dovra trace get", "Where the trace files are and how large they get.",
     "autocli dovra trace get"},

    {"dovra maintenancemode cancel", "The host is not to enter maintenance mode after all.",
     "autocli dovra maintenancemode cancel"},
    {"dovra faultdomain set", "This host stands at site A.",
     "autocli dovra faultdomain set --fdname site-a"},
    {"dovra faultdomain get", "Where this host stands.", "autocli dovra faultdomain get"},
    {"dovra faultdomain reset", "This host is a fault domain of its own again.",
     "autocli dovra faultdomain reset"},
    {"dovra resync throttle set", "Resync gets no more than 100 Mbps.",
     "autocli dovra resync throttle set --level 100"},
    {"dovra resync throttle set", "Resync gets what it can.",
     "autocli dovra resync throttle set --level 0"},
    {"dovra resync throttle get", "The limit in force.", "autocli dovra resync throttle get"},
    {"dovra resync bandwidth get", "What resync uses now.", "autocli dovra resync bandwidth get"},

    {"lab host add", "A second host, for --host.", "autocli lab host add --name host2"},
    {"lab host remove", "A host dies.", "autocli lab host remove --name host3"},
    {"lab host list", "Every host and the cluster it is in.", "autocli lab host list"},
    {"lab host reboot",
     "A boot; \"dovra network restore\" and \"dovra cluster restore\" follow it.",
     "autocli lab host reboot --name host1"},
    {"lab disk add", "A disk in an empty slot.",
     "autocli lab disk add --device mpx.xhba2:C0:T4:L0 --kind capacity"},
    {"lab disk fail", "A disk dies.", "autocli lab disk fail --device mpx.xhba2:C0:T1:L0"},
    {"lab disk unplug", "Somebody pulls the wrong disk.",
     "autocli lab disk unplug --device mpx.xhba2:C0:T1:L0"},
    {"lab disk replug", "The disk is put back.",
     "autocli lab disk replug --device mpx.xhba2:C0:T1:L0"},
    {"lab disk replace", "A new disk in the slot of the dead one.",
     "autocli lab disk replace --device mpx.xhba2:C0:T1:L0"},
    {"lab disk generate", "A large host.", "autocli lab disk generate --count 40"},
    {"lab disk list", "Which disks there are, and which are empty.", "autocli lab disk list"},
    {"lab network split", "One site is cut off from the other.",
     "autocli lab network split --name host2 --name host3"},
    {"lab network heal", "All hosts reach each other again.", "autocli lab network heal"},
    {"lab fault add", "The next leave fails.",
     "autocli lab fault add --operation LeaveCluster --message \"The cluster is busy.\""},
    {"lab fault add", "Three reads of the configuration fail, on another host.",
     "autocli --host host2 lab fault add -o GetClusterConfig -m \"No answer.\" --count 3"},
    {"lab fault add", "A listing breaks off at its third disk.",
     "autocli lab fault add -o GetDiskInfo -m \"I/O error.\" --after 2"},
    {"lab fault list", "What is still to fail.", "autocli lab fault list"},
    {"lab fault clear", "Nothing fails any more.", "autocli lab fault clear"},
    {"lab fault clear", "One of two faults on an operation of a host.",
     "autocli --host host2 lab fault clear -o GetClusterConfig -m \"No answer.\""},
    {"lab api set", "A host whose control library is too old.", "autocli lab api set --version 1"},
    {"lab maintenance start", "The host enters maintenance mode, until that is cancelled.",
     "autocli lab maintenance start"},
    {"lab resync set", "Much to resynchronise.", "autocli lab resync set --demand 800"},
    {"lab traced set", "A daemon that starts at the third attempt.",
     "autocli lab traced set --state running --fail-restarts 2"},
    {"lab reset", "Everything from the beginning.", "autocli lab reset --force"},
};

}  // namespace

std::span<const Example> ExamplesOf(std::string_view path) {
  const auto isOther = [path](const Example& example) { return example.command != path; };
  const auto* const begin = std::ranges::find(kExamples, path, &Example::command);
  const auto* const end = std::find_if(begin, std::end(kExamples), isOther);
  return {begin, end};
}

std::string ExamplesHelp(std::string_view path, const CliTools::Style& style) {
  const auto examples = ExamplesOf(path);
  if (examples.empty()) return {};
  std::string text =
      '\n' + CliTools::Caption(examples.size() == 1 ? "Example:" : "Examples:", style) + '\n';
  for (const Example& example : examples) {
    text += CliTools::Wrap(std::string("# ") + example.purpose, 2, style.width);
    text += std::string("  ") + example.line + '\n';
  }
  return text;
}

}  // namespace AutoCliProgram
