
#include "Cases.h"

using namespace Testing;

namespace {

TEST(PolicyGetDefault, ShowsAllClassesOrOne) {
  const auto policies = [](RecordingLibrary& library) {
    library.policies = {{"cluster", "a=1, b=2"}, {"vmem", "last"}, {"vmswap", "swap"}};
  };
  Check("policy getdefault", policies, {},
        kOpen + Strings{"GetPolicyDefault(cluster)", "GetPolicyDefault(vdisk)",
                        "GetPolicyDefault(vmnamespace)", "GetPolicyDefault(vmswap)",
                        "GetPolicyDefault(vmem)"},
        {"[{Policy Class: cluster, Policy Value: a=1, b=2}, {Policy Class: vdisk, Policy Value: }, "
         "{Policy Class: vmnamespace, Policy Value: }, {Policy Class: vmswap, Policy Value: swap}, "
         "{Policy Class: vmem, Policy Value: last}]",
         {}});
  Check("policy getdefault", policies, {{"policy-class", "vmswap"}},
        kOpen + Strings{"GetPolicyDefault(vmswap)"},
        {"[{Policy Class: vmswap, Policy Value: swap}]", {}});
  RecordingLibrary library;
  const Outcome unknown = Testing::Run("policy getdefault", {{"policy-class", "nonsense"}});
  EXPECT_EQ(unknown.root, "none");
  ASSERT_EQ(unknown.errors.size(), 1U);
  EXPECT_TRUE(unknown.errors[0].starts_with("Unknown policy class \"nonsense\""));
}

TEST(PolicyCommands, HandOneRequestToTheLibrary) {
  const std::string policy = " a=1, \"b\"=2\n";
  Check("policy setdefault", {}, {{"policy-class", "as typed"}, {"policy", policy}},
        kOpen + Strings{"SetPolicyDefault(as typed, " + policy + ")"}, kTrue);
  Check("policy cleardefault", {}, {}, kOpen + Strings{"ClearPolicyDefaults()"}, kTrue);
}

}  // namespace
