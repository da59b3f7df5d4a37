#include <gmock/gmock.h>

#include "Cases.h"

using namespace Testing;

namespace {

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

}  // namespace
