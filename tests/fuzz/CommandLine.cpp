// Parses any words, separated by zero bytes. Accepted values must be allowed and survive being
// written out and parsed again; errors must be one line.

#include "clitools/CommandLine.h"

#include <algorithm>
#include <vector>

#include "../unit/lab/Parameters.h"
#include "Fuzz.h"
#include "baselibs/Strings.h"

using namespace CliTools;

namespace {

void CheckAllowed(const Input& input) {
  Require("the required one is given", input.HasParameter("uuid"));
  if (input.HasParameter("level")) {
    const std::int64_t level = input.GetParameterInt("level");
    Require("in the range", level >= 0 && level <= kMostLevel);
  }
  if (!input.HasParameter("roles")) return;
  std::vector<std::string> roles;
  input.GetParameterList("roles", roles);
  for (const std::string& role : roles) {
    Require("one of the roles", std::ranges::find(kRoles, role) != kRoles.end());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::shared_ptr<InputSpec> kSpec = MakeSpec();
  const std::string text(data, data + size);
  const auto parts = BaseLibs::Split(text, '\0');
  const std::vector<std::string> words(parts.begin(), parts.end() - (parts.back().empty() ? 1 : 0));
  try {
    const auto input = ParseParameters(*kSpec, words);
    CheckAllowed(*input);
    const auto written = WriteOut(*kSpec, *input);
    const auto again = ParseParameters(*kSpec, written);
    Require("the same again", WriteOut(*kSpec, *again) == written);
  } catch (const UsageError& error) {
    const auto isControl = [](unsigned char c) { return c < ' ' || c == 0x7F; };
    Require("one line", std::ranges::none_of(std::string(error.what()), isControl));
  }
  return 0;
}
