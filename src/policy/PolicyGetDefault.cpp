#include "frame/Command.h"
#include "policy/PolicyClasses.h"

namespace OrvaneCli::DovraNamespace {

using HostCtl::Dovra::DovraPolicyClass;

namespace {

/// Returns the class of this name, or every class when the name is empty.
std::vector<DovraPolicyClass> SelectClasses(const std::string& name) {
  if (name.empty()) return DovraUtil::GetDovraPolicyClasses();
  return {DovraUtil::StringToDovraPolicyClass(name)};
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

  static StructPtr MakeRow(const std::string& policyClass, const std::string& policy) {
    StructPtr row = GetOutputStructure();
    row->SetField("Policy Class", policyClass);
    row->SetField("Policy Value", policy);
    return row;
  }

  void ExecuteInternal(const InputPtr& input, const OutputPtr& output) override {
    const std::string selected = input->GetParameter("policy-class");
    try {
      const ControlLibrary library;
      const ListPtr list = MakeList();
      for (const auto policyClass : SelectClasses(selected)) {
        const std::string name = DovraUtil::DovraPolicyClassToString(policyClass);
        list->Add(MakeRow(name, library->GetPolicyDefault(name)));
      }
      output->SetRootObject(list);
    } catch (const DovraCtlException& failure) {
      Report(output, failure);
    }
  }
};

template CommandPtr MakeCommand<PolicyGetDefault>();

}  // namespace OrvaneCli::DovraNamespace
