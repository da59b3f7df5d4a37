#include <gmock/gmock.h>

#include "Cases.h"

using namespace Testing;

namespace {

TEST(DatastoreCommands, HandOneRequestToTheLibrary) {
  Check("datastore add --uuid 'no uuid' --name n", kOpen + "AddDatastore(no uuid, n, false)",
        kTrue);
  Check("datastore clear", kOpen + "ClearDatastores()", kTrue);
  Check("datastore remove --uuid U", kOpen + "RemoveDatastore(U, true)", kTrue);
}

TEST(DatastoreAdd, MakesAUuidOfItsOwnForEachDatastore) {
  RecordingLibrary library;
  Testing::Run("datastore add --name n");
  Testing::Run("datastore add --uuid '' --name n");
  ASSERT_EQ(library.calls.size(), 6U);
  const auto added = testing::MatchesRegex(
      "AddDatastore\\([0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}, n, false\\)");
  EXPECT_THAT(library.calls[2], added);
  EXPECT_THAT(library.calls[5], added);
  EXPECT_NE(library.calls[2], library.calls[5]);
}

TEST(DatastoreList, KeepsTheOrder) {
  const auto two = [](RecordingLibrary& library) {
    library.datastores = {{"u2", "second", false}, {"u1", "first, \"quoted\"", true}};
  };
  Check("datastore list", two, kOpen + "GetDatastores()",
        {"[{Datastore UUID: u2, User Friendly Name: second, Default: false}, "
         "{Datastore UUID: u1, User Friendly Name: first, \"quoted\", Default: true}]",
         {}});
}

TEST(DatastoreName, IsThatOfTheDefaultDatastoreUnlessSaidOtherwise) {
  const auto names = [](RecordingLibrary& library) {
    library.datastoreNames = {{"", "the default"}, {"U 1", "first"}};
  };
  Check("datastore name get", names, kOpen + "GetDatastoreName()", {"{Name: the default}", {}});
  Check("datastore name get --uuid 'U 1'", names, kOpen + "GetDatastoreName(U 1)",
        {"{Name: first}", {}});
  Check("datastore name set --newname 'new name'", kOpen + "SetDatastoreName(, new name)", kTrue);
  Check("datastore name set --uuid U --newname ''", kOpen + "SetDatastoreName(U, )", kTrue);
}

}  // namespace
