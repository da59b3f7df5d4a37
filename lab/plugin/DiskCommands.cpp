// `lab disk`.

#include "corectl/Disks.h"
#include "corectl/LabHost.h"
#include "frame/Command.h"

namespace Lab {

using namespace OrvaneCli::DovraNamespace;

namespace {

const char* UseOf(const DiskRow& disk) {
  if (!disk.IsClaimed()) return "empty";
  return disk.IsCache() ? "cache" : "capacity";
}

}  // namespace

class DiskAdd final : public SuccessCommand<DiskAdd> {
 public:
  DiskAdd() {
    DescribeOperation(
        "Plug an empty disk into this host. With auto claim mode on, the Dovra service then claims "
        "every empty disk.");
  }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({
        {"device", "d", ParameterType::kString, Need::kRequired,
         "Device name of the disk, e.g. mpx.xhba2:C0:T4:L0."},
        {"kind", "k", ParameterType::kString, Need::kRequired, "Kind of disk, one of %ENUM%.",
         OneOf({{"flash", "a flash device"}, {"capacity", "a disk that is not flash"}})},
    });
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    SucceedOrNothing(output, "Unable to add disk: ", [&] {
      LabHost::Current().Change([&](Store& store, const HostRow& host) {
        const std::string device = input->GetParameter("device");
        if (device.empty()) Refuse("A disk needs a device name.");
        PlugIn(store, host, device, input->GetParameter("kind") == "flash");
      });
    });
  }
};

/// Something that happens to one disk: `kEvent(store, host, device)`, refused as `T::kFailure`
/// says.
template <class T, auto kEvent>
class DiskEvent : public SuccessCommand<T> {
 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({{"device", "d", ParameterType::kString, Need::kRequired,
                           "Device name of the disk, e.g. mpx.xhba2:C0:T1:L0."}});
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    SucceedOrNothing(output, T::kFailure, [&] {
      LabHost::Current().Change([&](Store& store, const HostRow& host) {
        kEvent(store, host, input->GetParameter("device"));
      });
    });
  }
};

class DiskFail final : public DiskEvent<DiskFail, Fail> {
 public:
  static constexpr const char* kFailure = "Unable to fail disk: ";
  DiskFail() {
    DescribeOperation(
        "Let a disk of this host fail: it is seen but cannot be read. A flash disk that fronts a "
        "disk group takes the whole group out of use.");
  }
};

class DiskUnplug final : public DiskEvent<DiskUnplug, Unplug> {
 public:
  static constexpr const char* kFailure = "Unable to unplug disk: ";
  DiskUnplug() {
    DescribeOperation(
        "Unplug a disk from this host. The cluster still knows it, until it is removed by its "
        "UUID.");
  }
};

class DiskReplug final : public DiskEvent<DiskReplug, Replug> {
 public:
  static constexpr const char* kFailure = "Unable to replug disk: ";
  DiskReplug() { DescribeOperation("Plug in again what was unplugged, with all that is on it."); }
};

class DiskReplace final : public DiskEvent<DiskReplace, Replace> {
 public:
  static constexpr const char* kFailure = "Unable to replace disk: ";
  DiskReplace() {
    DescribeOperation(
        "Put a new, empty disk in the place of one that failed or was unplugged, and that no disk "
        "group knows any more.");
  }
};

class DiskGenerate final : public SuccessCommand<DiskGenerate> {
 public:
  DiskGenerate() {
    DescribeOperation(
        "Add many disks to this host, claimed in disk groups: a flash disk and up to seven "
        "capacity disks behind it, then the next flash disk.");
  }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({{"count", "c", ParameterType::kInt, Need::kRequired,
                           "Number of disks (%ENUM%).", Between(1, 1000000)}});
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    SucceedOrNothing(output, "Unable to generate disks: ", [&] {
      LabHost::Current().Change([&](Store& store, const HostRow& host) {
        Generate(store, host, input->GetParameterInt("count"));
      });
    });
  }
};

class DiskList final : public ListCommand<DiskList> {
 public:
  static constexpr Record kRecord = {
      .name = "LabDiskList",
      .fields =
          {
              {"Device", MetaType::kString},
              {"Kind", MetaType::kString},
              {"Use", MetaType::kString},
              {"Mounted", MetaType::kBool},
              {"State", MetaType::kString},
              {"Disk Group", MetaType::kString},  // what a narrow terminal can do without is last
              {"UUID", MetaType::kString},
          },
      .formatter = "table",
      .separator = ",",
  };

  DiskList() { DescribeFetcher("List this host's disks, claimed or not."); }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
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
        row->SetField("State", disk.unplugged ? "unplugged" : disk.failed ? "failed" : "ok");
        list->Add(row);
      }
    });
    output->SetRootObject(list);
  }
};

}  // namespace Lab

namespace OrvaneCli::DovraNamespace {
template CommandPtr MakeCommand<Lab::DiskAdd>();
template CommandPtr MakeCommand<Lab::DiskFail>();
template CommandPtr MakeCommand<Lab::DiskUnplug>();
template CommandPtr MakeCommand<Lab::DiskReplug>();
template CommandPtr MakeCommand<Lab::DiskReplace>();
template CommandPtr MakeCommand<Lab::DiskGenerate>();
template CommandPtr MakeCommand<Lab::DiskList>();
}  // namespace OrvaneCli::DovraNamespace
