#include "datastore/DatastoreTexts.h"
#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

using HostCtl::Dovra::DovraInfo;

class DatastoreList final : public ListCommand<DatastoreList> {
 public:
  static constexpr Record kRecord = {
      .name = "DovraDatastoreList",
      .fields =
          {
              {"Datastore UUID", MetaType::kString},
              {"User Friendly Name", MetaType::kString},
              {"Default", MetaType::kBool},
          },
      .caption = "Datastore",
      .separator = ", ",
  };

  DatastoreList() { DescribeFetcher("List datastores in the Dovra cluster."); }

 private:
  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    SucceedOrNothing(output, kUnableToAddDatastore, [](const ControlLibrary& library) {
      DovraInfo::Datastores datastores;
      library->GetDatastores(datastores);
      ListPtr list = MakeList();
      list->Reserve(datastores.size());
      for (const auto& datastore : datastores) {
        if (!datastore) continue;
        const StructPtr row = GetOutputStructure();
        row->SetField("Datastore UUID", datastore->GetUuid());
        row->SetField("User Friendly Name", datastore->GetName());
        row->SetField("Default", MetaBool::New(datastore->IsDefault()));
        list->Add(row);
      }
      return list;
    });
  }
};

template CommandPtr MakeCommand<DatastoreList>();

}  // namespace OrvaneCli::DovraNamespace
