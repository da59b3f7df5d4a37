// `lab disk`.

#include "corectl/Disks.h"
#include "corectl/LabHost.h"
#include "plugin/LabCommands.h"

namespace Lab {

namespace {

constexpr Field kFields[] = {
    {"Device", MetaType::kString},     {"Kind", MetaType::kString}, {"Use", MetaType::kString},
    {"Disk Group", MetaType::kString}, {"UUID", MetaType::kString}, {"Mounted", MetaType::kBool},
};

const char* UseOf(const DiskRow& disk) {
  if (!disk.IsClaimed()) return "empty";
  return disk.IsCache() ? "cache" : "capacity";
}

}  // namespace

DiskAdd::DiskAdd() {
  DescribeOperation(
      "Plug an empty disk into this host. With auto claim mode on, the Dovra service then claims "
      "every empty disk.");
}

InputSpecPtr DiskAdd::GetInputSpecInternal() {
  return MakeInputSpec({
      {"device", "d", ParameterType::kString, Need::kRequired,
       "Device name of the disk, e.g. mpx.xhba2:C0:T4:L0."},
      {"kind", "k", ParameterType::kString, Need::kRequired, "Kind of disk, one of %ENUM%.",
       OneOf({{"flash", "a flash device"}, {"capacity", "a disk that is not flash"}})},
  });
}

void DiskAdd::ExecuteInternal(const InputPtr& input, const OutputPtr& output) {
  SucceedOrNothing(output, "Unable to add disk: ", [&] {
    LabHost::Current().Change([&](Store& store, const HostRow& host) {
      const std::string device = input->GetParameter("device");
      if (device.empty()) Refuse("A disk needs a device name.");
      PlugIn(store, host, device, input->GetParameter("kind") == "flash");
    });
  });
}

DiskGenerate::DiskGenerate() {
  DescribeOperation("Add many disks to this host, claimed in disk groups of up to eight.");
}

InputSpecPtr DiskGenerate::GetInputSpecInternal() {
  return MakeInputSpec({{"count", "c", ParameterType::kInt, Need::kRequired,
                         "Number of disks (%ENUM%).", Between(1, 1000000)}});
}

void DiskGenerate::ExecuteInternal(const InputPtr& input, const OutputPtr& output) {
  SucceedOrNothing(output, "Unable to generate disks: ", [&] {
    LabHost::Current().Change([&](Store& store, const HostRow& host) {
      Generate(store, host, input->GetParameterInt("count"));
    });
  });
}

const Record DiskList::kRecord = {"LabDiskList", kFields};

DiskList::DiskList() {
  DescribeFetcher("List this host's disks, claimed or not.");
  SetDefaultOutputFormatter("table");
  SetDefaultOutputParameter("fields:LabDiskList", FieldNames(kRecord));
}

void DiskList::ExecuteInternal(const InputPtr&, const OutputPtr& output) {
  const ListPtr list = MakeList();
  LabHost::Current().Read([&](Store& store, const HostRow& host) {
    for (const DiskRow& disk : store.ListDisks(host.id)) {
      const StructPtr row = GetOutputStructure();
      row->SetField("Device", disk.device);
      row->SetField("Kind", !disk.flash        ? "capacity"
                            : disk.capacityTag ? "capacityFlash"
                                               : "flash");
      row->SetField("Use", UseOf(disk));
      row->SetField("Disk Group", disk.groupName);
      row->SetField("UUID", disk.uuid);
      row->SetField("Mounted", MetaBool::New(disk.mounted));
      list->Add(row);
    }
  });
  output->SetRootObject(list);
}

}  // namespace Lab
