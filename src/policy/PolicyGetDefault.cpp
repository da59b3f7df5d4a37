#include "frame/Command.h"
#include "platform/corectl/DovraUtil.h"
#include "policy/PolicyClasses.h"

namespace OrvaneCli::DovraNamespace {

using CoreCtl::Dovra::DovraUtil;
using HostCtl::Dovra::DovraPolicyClass;

namespace {

/// The class of this name; all of them if there is none.
std::vector<DovraPolicyClass> SelectClasses(const std::optional<std::string>& name) {
  if (!name || name->empty()) return DovraUtil::GetDovraPolicyClasses();
  return {DovraUtil::StringToDovraPolicyClass(*name)};
}

}  // namespace

class PolicyGetDefault final : public ListCommand<PolicyGetDefault> {
 public:
  static constexpr Record kRecord = {
      .name = "Policy",
      .fields =
          {
              {"Policy Class", MetaType::kString},
              {"Policy Value", MetaType::kString},
          },
      .formatter = "table",
      .separator = ",",
  };

  PolicyGetDefault() { DescribeFetcher("Get default Dovra storage policy values."); }

 private:
  InputSpecPtr GetInputSpecInternal() override {
    return MakeInputSpec({
        {"policy-class", "c", ParameterType::kString, Need::kOptional,
         "Dovra policy class whose default value to get. If not provided, defaults for all classes "
         "will be retrieved. Options are: %ENUM%.",
         AnyPolicyClass()},
    });
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    SucceedOrNothing(output, "", [&](const ControlLibrary& library) {
      ListPtr list = MakeList();
      for (const auto policyClass : SelectClasses(Given<std::string>(input, "policy-class"))) {
        const std::string name = DovraUtil::DovraPolicyClassToString(policyClass);
        const StructPtr row = GetOutputStructure();
        row->SetField("Policy Class", name);
        row->SetField("Policy Value", library->GetPolicyDefault(name));
        list->Add(row);
      }
      return list;
    });
  }
};

template CommandPtr MakeCommand<PolicyGetDefault>();

}  // namespace OrvaneCli::DovraNamespace
