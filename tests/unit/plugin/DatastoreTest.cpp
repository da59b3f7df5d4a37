#include <gmock/gmock.h>

#include "Cases.h"
#include "datastore/DatastoreCommands.h"

using namespace OrvaneCli::DovraNamespace;
using namespace Testing;

namespace {

TEST(DatastoreCommands, HandOneRequestToTheLibrary) {
  Check<DatastoreAdd>({}, {{"uuid", "no uuid"}, {"name", "n"}},
                      kOpen + Strings{"AddDatastore(no uuid, n, false)"}, kTrue);
  Check<DatastoreClear>({}, {}, kOpen + Strings{"ClearDatastores()"}, kTrue);
  Check<DatastoreRemove>({}, {{"uuid", "U"}}, kOpen + Strings{"RemoveDatastore(U, true)"}, kTrue);
}

TEST(DatastoreAdd, MakesAUuidOfItsOwnForEachDatastore) {
  RecordingLibrary library;
  Testing::Run<DatastoreAdd>({{"name", "n"}});
  Testing::Run<DatastoreAdd>({{"uuid", ""}, {"name", "n"}});
  ASSERT_EQ(library.calls.size(), 6U);
  const auto added = testing::MatchesRegex(
      "AddDatastore\\([0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}, n, false\\)");
  EXPECT_THAT(library.calls[2], added);
  EXPECT_THAT(library.calls[5], added);
  EXPECT_NE(library.calls[2], library.calls[5]);
}

TEST(DatastoreList, KeepsTheOrder) {
  const Strings calls = kOpen + Strings{"GetDatastores()"};
  Check<DatastoreList>(
      [](RecordingLibrary& library) {
        library.datastores = {{"u2", "second", false}, {"u1", "first, \"quoted\"", true}};
      },
      {}, calls,
      {"[{Datastore UUID: u2, User Friendly Name: second, Default: false}, "
       "{Datastore UUID: u1, User Friendly Name: first, \"quoted\", Default: true}]",
       {}});
  Check<DatastoreList>({}, {}, calls, {"[]", {}});
}

TEST(DatastoreName, IsThatOfTheDefaultDatastoreUnlessSaidOtherwise) {
  const auto names = [](RecordingLibrary& library) {
    library.datastoreNames = {{"", "the default"}, {"U 1", "first"}};
  };
  Check<DatastoreNameGet>(names, {}, kOpen + Strings{"GetDatastoreName()"},
                          {"{Name: the default}", {}});
  Check<DatastoreNameGet>(names, {{"uuid", "U 1"}}, kOpen + Strings{"GetDatastoreName(U 1)"},
                          {"{Name: first}", {}});
  Check<DatastoreNameSet>({}, {{"newname", "new name"}},
                          kOpen + Strings{"SetDatastoreName(, new name)"}, kTrue);
  Check<DatastoreNameSet>({}, {{"uuid", "U"}, {"newname", ""}},
                          kOpen + Strings{"SetDatastoreName(U, )"}, kTrue);
}

}  // namespace
