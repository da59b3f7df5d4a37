#include "Cases.h"

using namespace Testing;

namespace {

TEST(PolicyGetDefault, ShowsAllClassesOrOne) {
  const auto policies = [](RecordingLibrary& library) {
    library.policies = {{"cluster", "a=1, b=2"}, {"vmem", "last"}, {"vmswap", "swap"}};
  };
  const Outcome all = {
      "[{Policy Class: cluster, Policy Value: a=1, b=2}, {Policy Class: vdisk, Policy Value: }, "
      "{Policy Class: vmnamespace, Policy Value: }, {Policy Class: vmswap, Policy Value: swap}, "
      "{Policy Class: vmem, Policy Value: last}]",
      {}};
  Check("policy getdefault", policies,
        kOpen + "GetPolicyDefault(cluster)" + "GetPolicyDefault(vdisk)" +
            "GetPolicyDefault(vmnamespace)" + "GetPolicyDefault(vmswap)" + "GetPolicyDefault(vmem)",
        all);
  Check("policy getdefault --policy-class vmswap", policies, kOpen + "GetPolicyDefault(vmswap)",
        {"[{Policy Class: vmswap, Policy Value: swap}]", {}});
  // The framework takes neither of these.
  RecordingLibrary library;
  policies(library);
  auto& command = Find("policy getdefault").first;
  EXPECT_EQ(Testing::Run(command, {{"policy-class", ""}}), all);
  const Outcome unknown = Testing::Run(command, {{"policy-class", "nonsense"}});
  EXPECT_EQ(unknown.root, "none");
  ASSERT_EQ(unknown.errors.size(), 1U);
  EXPECT_TRUE(unknown.errors[0].starts_with("Unknown policy class \"nonsense\""));
}

}  // namespace
