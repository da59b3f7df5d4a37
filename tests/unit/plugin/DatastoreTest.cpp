#include <gmock/gmock.h>

#include "Cases.h"
#include "datastore/DatastoreCommands.h"

using namespace OrvaneCli::DovraNamespace;
using namespace Testing;

namespace {

TEST(DatastoreCommands, HandOneRequestToTheLibrary) {
  CheckEachFailure<DatastoreAdd>({}, {{"uuid", "no uuid"}, {"name", "n"}},
                                 kOpen + Strings{"AddDatastore(no uuid, n, false)"},
                                 Failed("Unable to add datastore: broken"));
  CheckEachFailure<DatastoreClear>({}, {}, kOpen + Strings{"ClearDatastores()"},
                                   Failed("Unable to clear datastore: broken"));
  CheckEachFailure<DatastoreRemove>({}, {{"uuid", "U"}},
                                    kOpen + Strings{"RemoveDatastore(U, true)"},
                                    Failed("Unable to remove datastore: broken"));
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

TEST(DatastoreList, KeepsTheOrderAndFailsInTheWordsOfAdd) {
  const Strings calls = kOpen + Strings{"GetDatastores()"};
  CheckEachFailure<DatastoreList>(
      [](RecordingLibrary& library) {
        library.datastores = {{"u2", "second", false}, {"u1", "first, \"quoted\"", true}};
      },
      {}, calls, Failed("Unable to add datastore: broken"),
      {"[{Datastore UUID: u2, User Friendly Name: second, Default: false}, "
       "{Datastore UUID: u1, User Friendly Name: first, \"quoted\", Default: true}]",
       {}});
  Check<DatastoreList>({}, {}, calls, {"[]", {}});
}

TEST(DatastoreName, IsThatOfTheDefaultDatastoreUnlessSaidOtherwise) {
  const auto names = [](RecordingLibrary& library) {
    library.datastoreNames = {{"", "the default"}, {"U 1", "first"}};
  };
  CheckEachFailure<DatastoreNameGet>(names, {}, kOpen + Strings{"GetDatastoreName()"},
                                     Failed("Unable to get Dovra datastore name: broken"),
                                     {"{Name: the default}", {}});
  Check<DatastoreNameGet>(names, {{"uuid", "U 1"}}, kOpen + Strings{"GetDatastoreName(U 1)"},
                          {"{Name: first}", {}});
  CheckEachFailure<DatastoreNameSet>({}, {{"newname", "new name"}},
                                     kOpen + Strings{"SetDatastoreName(, new name)"},
                                     Failed("Unable to set Dovra datastore name: broken"));
  Check<DatastoreNameSet>({}, {{"uuid", "U"}, {"newname", ""}},
                          kOpen + Strings{"SetDatastoreName(U, )"}, kTrue);
}

}  // namespace
