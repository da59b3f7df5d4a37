// Any words, each ended by a zero byte, for a command's parameters: what is accepted is allowed,
// and is the same when it is written out and read again; what is refused is so in one line.

#include "clitools/CommandLine.h"

#include <algorithm>
#include <vector>

#include "../unit/lab/Tree.h"
#include "Fuzz.h"

using namespace CliTools::CallSpec;

namespace {

using Strings = std::vector<std::string>;

constexpr std::int64_t kMin = -5, kMax = 512;
const Strings kAllowed = {"one", "two", "", "-o"};

std::shared_ptr<InputSpec> MakeSpec() {
  CliTools::FakeCommand command;
  command.Add("text", "t", ParameterType::kString, "").SetRequired(true);
  command.Add("text-file", "", ParameterType::kString, "");
  command.Add("number", "n", ParameterType::kInt, "");
  command.Add("truth", "b", ParameterType::kBool, "");
  command.Add("flag", "f", ParameterType::kFlag, "");
  command.Add("wait", "w", ParameterType::kFlag, "");
  command.Add("list", "l", ParameterType::kStringList, "");
  const auto range = ParameterConstraint::New(ParameterConstraintType::kIntRange);
  range->SetIntRange(kMin, kMax);
  command.Add("level", "L", ParameterType::kInt, "").SetConstraint(range);
  const auto choice = ParameterConstraint::New(ParameterConstraintType::kStringEnum);
  for (const std::string& value : kAllowed) choice->AddStringEnum(value, "");
  command.Add("choice", "c", ParameterType::kStringList, "").SetConstraint(choice);
  return command.input;
}

/// The words that give these values, in the spelling that leaves no doubt.
Strings WriteOut(const InputSpec& spec, const Input& input) {
  Strings words;
  for (const auto& parameter : spec.GetParameters()) {
    const std::string& name = parameter->GetName();
    if (!input.HasParameter(name)) continue;
    const ParameterType type = parameter->GetType();
    Strings values;
    if (type == ParameterType::kString) values = {input.GetParameter(name)};
    if (type == ParameterType::kInt) values = {std::to_string(input.GetParameterInt(name))};
    if (type == ParameterType::kBool) values = {input.GetParameterBool(name) ? "yes" : "no"};
    if (type == ParameterType::kStringList) input.GetParameterList(name, values);
    if (type == ParameterType::kFlag) words.push_back("--" + name);
    for (const std::string& value : values) words.push_back("--" + name + '=' + value);
  }
  return words;
}

void CheckAllowed(const Input& input) {
  Require("the required one is given", input.HasParameter("text"));
  if (input.HasParameter("level")) {
    const std::int64_t level = input.GetParameterInt("level");
    Require("in the range", level >= kMin && level <= kMax);
  }
  if (!input.HasParameter("choice")) return;
  Strings choices;
  input.GetParameterList("choice", choices);
  for (const std::string& choice : choices) {
    Require("one of the choices", std::ranges::find(kAllowed, choice) != kAllowed.end());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::shared_ptr<InputSpec> kSpec = MakeSpec();
  Strings words;
  for (const std::uint8_t* const end = data + size; data < end;) {
    const auto zero = std::find(data, end, 0);
    words.emplace_back(data, zero);
    data = zero + (zero == end ? 0 : 1);
  }
  try {
    const auto input = CliTools::ParseParameters(*kSpec, words);
    CheckAllowed(*input);
    const Strings written = WriteOut(*kSpec, *input);
    const auto again = CliTools::ParseParameters(*kSpec, written);
    Require("the same again", WriteOut(*kSpec, *again) == written);
  } catch (const CliTools::UsageError& error) {
    const auto isControl = [](unsigned char c) { return c < ' ' || c == 0x7F; };
    Require("one line", std::ranges::none_of(std::string(error.what()), isControl));
  }
  return 0;
}
