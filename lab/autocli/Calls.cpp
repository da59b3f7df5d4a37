#include "autocli/Calls.h"

#include "baselibs/Strings.h"
#include "corectl/session/Operations.h"

namespace AutoCliProgram {

std::vector<std::string_view> CallsOf(std::string_view path) {
  constexpr std::string_view kSpace = "dovra ";
  std::vector<std::string_view> calls;
  if (!path.starts_with(kSpace)) return calls;
  for (const Lab::OperationRow& row : Lab::kOperations) {
    if (row.IsCalledBy(path.substr(kSpace.size()))) calls.push_back(row.name);
  }
  return calls;
}

std::string CallsHelp(std::string_view path, const CliTools::Style& style) {
  const auto calls = CallsOf(path);
  if (calls.empty()) return {};
  return '\n' + CliTools::Caption("Calls of the control library, where faults can strike:", style) +
         '\n' + CliTools::Wrap(BaseLibs::Join(calls, ", "), 2, style.width);
}

}  // namespace AutoCliProgram
