// Any words for any parameters. An input's first part, ended by a zero byte, says the parameters,
// "name/letter:type" each, with "!" behind a required one's type, joined by commas; the further
// parts are the words.

#include "clitools/CommandLine.h"

#include <map>
#include <optional>
#include <vector>

#include "Fuzz.h"

using namespace CliTools::CallSpec;

namespace {

using Strings = std::vector<std::string>;
using Parameters = std::vector<std::shared_ptr<ParameterSpec>>;

/// By the letter that says it in an input. The letters of those with a constraint are capital.
const std::map<char, ParameterType> kTypes = {
    {'s', ParameterType::kString},     {'S', ParameterType::kString},
    {'i', ParameterType::kInt},        {'I', ParameterType::kInt},
    {'b', ParameterType::kBool},       {'f', ParameterType::kFlag},
    {'l', ParameterType::kStringList}, {'L', ParameterType::kStringList}};

std::shared_ptr<ParameterConstraint> MakeConstraint(ParameterType type) {
  const bool isRange = type == ParameterType::kInt;
  auto constraint = ParameterConstraint::New(isRange ? ParameterConstraintType::kIntRange
                                                     : ParameterConstraintType::kStringEnum);
  for (const char* value : {"one", "two", "", "-o"}) constraint->AddStringEnum(value, "");
  constraint->SetIntRange(-5, 512);
  return constraint;
}

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

/// Of what the text says, all that a command can declare: no name or letter twice.
InputSpec ReadSpec(const std::string& text) {
  InputSpec spec;
  Fuzz::Parts parts(text, ',');
  while (parts.HasMore()) {
    const std::string part = parts.Next();
    const std::size_t slash = part.find('/'), colon = part.find(':', slash);
    if (colon == std::string::npos || !kTypes.contains(part.c_str()[colon + 1])) continue;
    const std::string name = part.substr(0, slash);
    const auto fits = [](char c) { return IsLetter(c) || c == '-'; };
    if (!IsLetter(name.c_str()[0]) || !std::ranges::all_of(name, fits)) continue;
    const auto one = ParameterSpec::New(name, kTypes.at(part[colon + 1]));
    if (IsLetter(part[slash + 1])) one->SetShortName(part.substr(slash + 1, 1));
    if (part[colon + 1] < 'a') one->SetConstraint(MakeConstraint(one->GetType()));
    one->SetRequired(part.back() == '!');
    const auto clashes = [&one](const auto& other) {
      return one->GetName() == other->GetName() ||
             (!one->GetShortName().empty() && one->GetShortName() == other->GetShortName());
    };
    if (std::ranges::none_of(spec.GetParameters(), clashes)) spec.AddParameter(one);
  }
  return spec;
}

/// The texts given to each parameter, by name; nothing when the words are no options.
std::optional<std::map<std::string, Strings>> Distribute(const Parameters& parameters,
                                                         const Strings& words) {
  std::map<std::string, Strings> given;
  for (auto word = words.begin(); word != words.end(); ++word) {
    if (*word == "--") return word + 1 == words.end() ? std::optional(given) : std::nullopt;
    if (word->size() < 2 || word->front() != '-') return std::nullopt;
    const bool isLong = (*word)[1] == '-';
    for (std::string rest = word->substr(isLong ? 2 : 1), name; !rest.empty();) {
      name = rest.substr(0, isLong ? rest.find('=') : 1);
      rest.erase(0, name.size());
      const auto named = std::ranges::find(
          parameters, name, isLong ? &ParameterSpec::GetName : &ParameterSpec::GetShortName);
      if (named == parameters.end()) return std::nullopt;
      Strings& texts = given[(*named)->GetName()];
      if ((*named)->GetType() == ParameterType::kFlag) {
        if (isLong && !rest.empty()) return std::nullopt;
        texts = {""};
      } else if (!rest.empty()) {
        texts.push_back(rest.substr(isLong ? 1 : 0));
        break;
      } else if (++word != words.end()) {
        texts.push_back(*word);
      } else {
        return std::nullopt;
      }
    }
  }
  return given;
}

/// The value of these texts; nothing when the parameter cannot have it.
std::optional<Input::Value> ValueOf(const ParameterSpec& parameter, const Strings& texts) {
  const auto type = parameter.GetType();
  const auto& constraint = parameter.GetConstraint();
  if (type == ParameterType::kFlag) return true;
  if (type != ParameterType::kStringList && texts.size() > 1) return std::nullopt;
  if (type == ParameterType::kBool) {
    const std::map<std::string, bool> known = {{"true", true}, {"1", true},      {"yes", true},
                                               {"on", true},   {"false", false}, {"0", false},
                                               {"no", false},  {"off", false}};
    std::string lower = texts[0];
    for (char& c : lower) {
      if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    const auto found = known.find(lower);
    return found == known.end() ? std::nullopt : std::optional(found->second);
  }
  if (type == ParameterType::kInt) {
    const std::string digits = texts[0].substr(texts[0].starts_with('-') ? 1 : 0);
    const bool isNumber = digits.find_first_not_of("0123456789") == std::string::npos;
    const auto number = Fuzz::LeadingNumber(texts[0]);
    const auto min = constraint ? constraint->GetIntMin() : INT64_MIN;
    const auto max = constraint ? constraint->GetIntMax() : INT64_MAX;
    if (digits.empty() || !isNumber || number < min || number > max) return std::nullopt;
    return static_cast<std::int64_t>(number);
  }
  const auto isAllowed = [&constraint](const std::string& text) {
    const auto& allowed = constraint->GetStringEnums();
    return std::ranges::any_of(allowed, [&text](const auto& one) { return one.first == text; });
  };
  if (constraint && !std::ranges::all_of(texts, isAllowed)) return std::nullopt;
  return type == ParameterType::kStringList ? Input::Value(texts) : texts[0];
}

/// The values that the words give; nothing when they are to be refused.
std::optional<std::map<std::string, Input::Value>> Expect(const Parameters& parameters,
                                                          const Strings& words) {
  const auto given = Distribute(parameters, words);
  if (!given) return std::nullopt;
  std::map<std::string, Input::Value> values;
  for (const auto& parameter : parameters) {
    const auto texts = given->find(parameter->GetName());
    if (texts == given->end() && !parameter->IsRequired()) continue;
    if (texts == given->end()) return std::nullopt;
    const auto value = ValueOf(*parameter, texts->second);
    if (!value) return std::nullopt;
    values[parameter->GetName()] = *value;
  }
  return values;
}

Input::Value ValueIn(const Input& input, const ParameterSpec& parameter) {
  const std::string& name = parameter.GetName();
  Strings values;
  switch (parameter.GetType()) {
    case ParameterType::kString:
      return input.GetParameter(name);
    case ParameterType::kInt:
      return input.GetParameterInt(name);
    case ParameterType::kStringList:
      input.GetParameterList(name, values);
      return values;
    default:
      return input.GetParameterBool(name);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Fuzz::Parts parts({data, data + size}, '\0');
  const InputSpec spec = ReadSpec(parts.Next());
  Strings words;
  while (parts.HasMore()) words.push_back(parts.Next());
  const auto expected = Expect(spec.GetParameters(), words);
  try {
    const auto input = CliTools::ParseParameters(spec, words);
    Fuzz::Same("whether it is right to accept it", expected.has_value(), true);
    for (const auto& parameter : spec.GetParameters()) {
      const auto value = expected->find(parameter->GetName());
      const bool isGiven = value != expected->end();
      Fuzz::Same("given", input->HasParameter(parameter->GetName()), isGiven);
      if (isGiven) Fuzz::Same("kept", ValueIn(*input, *parameter) == value->second, true);
    }
  } catch (const CliTools::UsageError& error) {
    const std::string text = error.what();
    Fuzz::Same(text.c_str(), expected.has_value(), false);
    const auto isControl = [](unsigned char c) { return c < ' ' || c == 0x7F; };
    Fuzz::Same("one line", std::ranges::none_of(text, isControl), true);
  }
  return 0;
}
