#include <gtest/gtest.h>

#include "platform/clitools/MetaObj.h"

namespace CliTools::MetaObj {
namespace {

std::shared_ptr<MetaStruct> Make(const std::vector<std::string>& fields) {
  auto record = MetaStruct::New("Shared");
  for (const std::string& field : fields) record->SetField(field, "value of " + field);
  return record;
}

std::string Show(const MetaStruct& record) {
  std::string shown;
  for (const std::string& field : record.GetFieldNames()) {
    const auto value = std::static_pointer_cast<MetaString>(record.GetField(field));
    shown += field + (value->GetValue() == "value of " + field ? " " : "? ");
  }
  return shown;
}

// Records share their names behind the scenes; none may see what another one does.
TEST(MetaStructTest, KeepsItsOwnFieldsBesideOthersOfItsName) {
  const auto first = Make({"a", "b"});
  const auto same = Make({"a", "b"});
  const auto shorter = Make({"a"});
  const auto other = Make({"a", "c", "b"});
  first->SetField("d", "value of d");
  same->SetField("e", "value of e");
  EXPECT_EQ("a b d ", Show(*first));
  EXPECT_EQ("a b e ", Show(*same));
  EXPECT_EQ("a ", Show(*shorter));
  EXPECT_EQ("a c b ", Show(*other));
  EXPECT_EQ(nullptr, shorter->GetField("b"));
  shorter->SetField("b", "value of b");
  EXPECT_TRUE(shorter->SharesLayout(*first));
  EXPECT_FALSE(other->SharesLayout(*first));
}

}  // namespace
}  // namespace CliTools::MetaObj
