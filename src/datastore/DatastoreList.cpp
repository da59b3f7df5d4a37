#include "datastore/DatastoreCommands.h"
#include "datastore/DatastoreTexts.h"
#include "frame/ControlLibrary.h"

namespace OrvaneCli::DovraNamespace {

using HostCtl::Dovra::DovraInfo;

namespace {

constexpr Field kFields[] = {
    {"Datastore UUID", MetaType::kString},
    {"User Friendly Name", MetaType::kString},
    {"Default", MetaType::kBool},
};

}  // namespace

const Record DatastoreList::kRecord = {"DovraDatastoreList", kFields};

DatastoreList::DatastoreList() {
  DescribeFetcher("List datastores in the Dovra cluster.");
  SetDefaultOutputFormatter("simple");
  SetDefaultOutputParameter("header:DovraDatastoreList", "Datastore");
  SetDefaultOutputParameter("fields:DovraDatastoreList", FieldNames(kRecord, ", "));
}

void DatastoreList::ExecuteInternal(const InputPtr&, const OutputPtr& output) {
  try {
    const ListPtr list = MakeList();
    const ControlLibrary library;
    DovraInfo::Datastores datastores;
    library->GetDatastores(datastores);
    list->Reserve(datastores.size());
    for (const auto& datastore : datastores) {
      const StructPtr row = GetOutputStructure();
      row->SetField("Datastore UUID", datastore->GetUuid());
      row->SetField("User Friendly Name", datastore->GetName());
      row->SetField("Default", MetaBool::New(datastore->IsDefault()));
      list->Add(row);
    }
    output->SetRootObject(list);
  } catch (const DovraCtlException& failure) {
    Report(output, kUnableToAddDatastore, failure);
  }
}

}  // namespace OrvaneCli::DovraNamespace
