#include <regex>

#include "Cases.h"
#include "policy/PolicyCommands.h"

using namespace OrvaneCli::DovraNamespace;
using namespace Testing;

namespace {

TEST(PolicyGetDefault, ShowsAllClassesOrOne) {
  const auto policies = [](RecordingLibrary& library) {
    library.policies = {{"cluster", "a=1, b=2"}, {"vmem", "last"}, {"vmswap", "swap"}};
  };
  // A failure at the last class leaves no table either.
  CheckEachFailure<PolicyGetDefault>(
      policies, {},
      kOpen + Strings{"GetPolicyDefault(cluster)", "GetPolicyDefault(vdisk)",
                      "GetPolicyDefault(vmnamespace)", "GetPolicyDefault(vmswap)",
                      "GetPolicyDefault(vmem)"},
      Failed("broken"),
      {"[{Policy Class: cluster, Policy Value: a=1, b=2}, {Policy Class: vdisk, Policy Value: }, "
       "{Policy Class: vmnamespace, Policy Value: }, {Policy Class: vmswap, Policy Value: swap}, "
       "{Policy Class: vmem, Policy Value: last}]",
       {}});
  Check<PolicyGetDefault>(policies, {{"policy-class", "vmswap"}},
                          kOpen + Strings{"GetPolicyDefault(vmswap)"},
                          {"[{Policy Class: vmswap, Policy Value: swap}]", {}});
  RecordingLibrary library;
  const Outcome unknown = Testing::Run<PolicyGetDefault>({{"policy-class", "nonsense"}});
  EXPECT_EQ(unknown.root, "none");
  ASSERT_EQ(unknown.errors.size(), 1U);
  EXPECT_TRUE(unknown.errors[0].starts_with("Unknown policy class \"nonsense\""));
}

TEST(PolicyCommands, LeaveFalseWhenTheyFail) {
  const std::string policy = " a=1, \"b\"=2\n";
  CheckEachFailure<PolicySetDefault>({}, {{"policy-class", "as typed"}, {"policy", policy}},
                                     kOpen + Strings{"SetPolicyDefault(as typed, " + policy + ")"},
                                     Failed("broken", "false"));
  CheckEachFailure<PolicyClearDefault>({}, {}, kOpen + Strings{"ClearPolicyDefaults()"},
                                       Failed("broken", "false"));
}

// An explanation is a single line; the third one has a note below it.
TEST(PolicySetDefault, ExplainsEveryAttribute) {
  const std::string shape =
      "Dovra policy to set as default, in the form of a string\\. Options are: \n"
      "1\\)cacheReservation - .+\nDefault value: 0, Maximum value: 1000000\\.\n"
      "2\\)forceProvisioning - .+\nDefault value: 0\\.\n"
      "3\\)hostFailuresToTolerate - .+\nNote: A host which is not part of a fault domain .+\n"
      "Default value: 1, Maximum value: 3\\.\n"
      "4\\)stripeWidth - .+for e\\.g when .+ higher used of system resources.*\n"
      "Default value: 1, Maximum value: 12\\.\n"
      "5\\)proportionalCapacity - .+\nDefault value: 0%, Maximum value: 100%\\.\n"
      "6\\)iopsLimit - .+\nDefault value: 0\\.\n"
      "7\\)replicaPreference - .+\nDefault value: RAID-1\\.\n";
  const auto parameters = PolicySetDefault::New()->GetInputSpec()->GetParameters();
  ASSERT_EQ(parameters.size(), 2U);
  const std::string& help = parameters[1]->GetDescription();
  EXPECT_TRUE(std::regex_match(help, std::regex(shape))) << help;
}

}  // namespace
