#include "datastore/DatastoreTexts.h"
#include "frame/Command.h"

namespace OrvaneCli::DovraNamespace {

using HostCtl::Dovra::DovraDatastore;
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
  static StructPtr MakeRow(const DovraDatastore& datastore) {
    StructPtr row = GetOutputStructure();
    row->SetField("Datastore UUID", datastore.GetUuid());
    row->SetField("User Friendly Name", datastore.GetName());
    row->SetField("Default", MetaBool::New(datastore.IsDefault()));
    return row;
  }

  void ExecuteInternal(const InputPtr&, const OutputPtr& output) override {
    const ListPtr list = MakeList();
    try {
      const ControlLibrary library;
      DovraInfo::Datastores datastores;
      library->GetDatastores(datastores);
      list->Reserve(datastores.size());
      for (const auto& datastore : datastores) {
        if (datastore) list->Add(MakeRow(*datastore));
      }
      output->SetRootObject(list);
    } catch (const DovraCtlException& failure) {
      Report(output, failure, kUnableToAddDatastore);
    }
  }
};

template CommandPtr MakeCommand<DatastoreList>();

}  // namespace OrvaneCli::DovraNamespace
