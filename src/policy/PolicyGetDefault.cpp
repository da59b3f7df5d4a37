#include "frame/ControlLibrary.h"
#include "platform/corectl/DovraUtil.h"
#include "policy/PolicyClasses.h"
#include "policy/PolicyCommands.h"

namespace OrvaneCli::DovraNamespace {

using CoreCtl::Dovra::DovraUtil;
using HostCtl::Dovra::DovraPolicyClass;

namespace {

constexpr Field kFields[] = {
    {"Policy Class", MetaType::kString},
    {"Policy Value", MetaType::kString},
};

/// The class of this name; all of them if the name is empty.
std::vector<DovraPolicyClass> SelectClasses(const std::string& name) {
  if (name.empty()) return DovraUtil::GetDovraPolicyClasses();
  return {DovraUtil::StringToDovraPolicyClass(name)};
}

}  // namespace

const Record PolicyGetDefault::kRecord = {"Policy", kFields};

PolicyGetDefault::PolicyGetDefault() {
  DescribeFetcher("Get default Dovra storage policy values.");
  SetDefaultOutputFormatter("table");
  SetDefaultOutputParameter("fields:Policy", FieldNames(kRecord));
}

InputSpecPtr PolicyGetDefault::GetInputSpecInternal() {
  return MakeInputSpec({
      {"policy-class", "c", ParameterType::kString, Need::kOptional,
       "Dovra policy class whose default value to get. If not provided, defaults for all classes "
       "will be retrieved. Options are: %ENUM%.",
       AnyPolicyClass()},
  });
}

void PolicyGetDefault::ExecuteInternal(const InputPtr& input, const OutputPtr& output) {
  try {
    const ControlLibrary library;
    const ListPtr list = MakeList();
    for (const auto policyClass : SelectClasses(input->GetParameter("policy-class"))) {
      const std::string name = DovraUtil::DovraPolicyClassToString(policyClass);
      const StructPtr row = GetOutputStructure();
      row->SetField("Policy Class", name);
      row->SetField("Policy Value", library->GetPolicyDefault(name));
      list->Add(row);
    }
    output->SetRootObject(list);
  } catch (const DovraCtlException& failure) {
    Report(output, "", failure);
  }
}

}  // namespace OrvaneCli::DovraNamespace
