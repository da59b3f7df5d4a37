#include <ctime>

#include "frame/Command.h"
#include "platform/baselibs/Uuid.h"
#include "platform/hostctl/Misc.h"

namespace OrvaneCli::DovraNamespace {

using HostCtl::Dovra::DovraConfigGeneration;
using HostCtl::Dovra::DovraMemberInfo;

namespace {

/// Returns the time in the host's time zone, with milliseconds that are not padded: 5 ms are shown
/// as ".5". A time in the first second of the epoch is shown as "0." and the milliseconds.
std::string FormatTimestamp(std::uint64_t milliseconds) {
  const auto seconds = static_cast<std::time_t>(milliseconds / 1000);
  char buffer[32] = "0.";
  if (seconds != 0) {
    // Any 64-bit time fits. localtime, unlike localtime_r, calls tzset, so that a changed time zone
    // takes effect. NOLINTNEXTLINE(concurrency-mt-unsafe): commands are called one at a time.
    std::strftime(buffer, sizeof buffer, "%Y-%m-%dT%H:%M:%S.", std::localtime(&seconds));
  }
  char remainder[8];
  Str_Snprintf(remainder, sizeof remainder, "%d", static_cast<int>(milliseconds % 1000));
  return std::string(buffer) + remainder;
}

std::string FormatGeneration(const DovraConfigGeneration& config) {
  return HostCtl::Misc::StrPrintf("%s %lu %s", config.uuid.empty() ? "None" : config.uuid.c_str(),
                                  config.generation, FormatTimestamp(config.timestamp).c_str());
}

}  // namespace

class ClusterGet final : public RecordCommand<ClusterGet> {
 public:
  static constexpr Record kRecord = {
      .name = "DovraClusterGet",
      .fields =
          {
              {"Enabled", MetaType::kBool},
              {"Current Local Time", MetaType::kString},
              {"Local Node UUID", MetaType::kString},
              {"Local Node Type", MetaType::kString},
              {"Local Node State", MetaType::kString},
              {"Local Node Health State", MetaType::kString},
              {"Sub-Cluster Master UUID", MetaType::kString},
              {"Sub-Cluster Backup UUID", MetaType::kString},
              {"Sub-Cluster UUID", MetaType::kString},
              {"Sub-Cluster Membership Entry Revision", MetaType::kInt},
              {"Sub-Cluster Member Count", MetaType::kInt},
              {"Sub-Cluster Member UUIDs", MetaType::kList},
              {"Sub-Cluster Membership UUID", MetaType::kString},
              {"Unicast Mode Enabled", MetaType::kBool},
              {"Maintenance Mode State", MetaType::kString},
              {"Config Generation", MetaType::kString},
          },
      .caption = "Cluster Information",
      .separator = ",",
  };

  ClusterGet() {
    DescribeFetcher("Get information about the Dovra cluster that this host is joined to.");
  }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    const StructPtr record = GetOutputStructure();
    try {
      const ControlLibrary library;
      const auto& config = library->GetClusterConfig();
      if (!config.enabled) {
        output->AddErrorMessage("Dovra Clustering is not enabled on this host");
        return output->SetRootObject(record);
      }
      const char* const nodeType = library->IsLocalNodeWitness() ? "WITNESS" : "NORMAL";

      std::vector<DovraMemberInfo> members;
      std::string state, uuid, health, membershipUuid, masterUuid, backupUuid, maintenanceState;
      std::uint64_t revision = 0;
      DovraUtil::GetInfoFromTavdir(members, state, uuid, health, revision, membershipUuid,
                                   masterUuid, backupUuid, maintenanceState);
      bool unicastMode = false;
      DovraUtil::GetUnicastMode(unicastMode);

      const ListPtr memberUuids = MetaList::New(MetaType::kString);
      memberUuids->Reserve(members.size());
      for (const DovraMemberInfo& member : members) memberUuids->Add(member.uuid);
      const std::string generation = FormatGeneration(library->GetConfigGeneration());

      record->SetField("Enabled", MetaBool::New(config.enabled));
      record->SetField("Current Local Time", DovraUtil::GetFormattedSystemDateTime());
      record->SetField("Local Node UUID", uuid);
      record->SetField("Local Node Type", nodeType);
      record->SetField("Local Node State", state);
      record->SetField("Local Node Health State", health);
      record->SetField("Sub-Cluster Master UUID", masterUuid);
      record->SetField("Sub-Cluster Backup UUID", backupUuid);
      record->SetField("Sub-Cluster UUID", config.clusterUuid);
      record->SetField("Sub-Cluster Membership Entry Revision",
                       MetaInt::New(static_cast<std::int64_t>(revision)));
      record->SetField("Sub-Cluster Member Count",
                       MetaInt::New(static_cast<std::uint32_t>(members.size())));
      record->SetField("Sub-Cluster Member UUIDs", memberUuids);
      record->SetField("Sub-Cluster Membership UUID", membershipUuid);
      record->SetField("Unicast Mode Enabled", MetaBool::New(unicastMode));
      record->SetField("Maintenance Mode State", maintenanceState);
      record->SetField("Config Generation", generation);
    } catch (const DovraCtlException& failure) {
      Report(output, failure);
    }
    output->SetRootObject(record);
  }
};

template CommandPtr MakeCommand<ClusterGet>();

}  // namespace OrvaneCli::DovraNamespace
