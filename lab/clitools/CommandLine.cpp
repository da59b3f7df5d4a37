#include "clitools/CommandLine.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <span>
#include <string_view>

#include "baselibs/Strings.h"
#include "clitools/Display.h"
#include "clitools/Suggest.h"

namespace CliTools {

using BaseLibs::Join;
using CallSpec::Input;
using CallSpec::InputSpec;
using CallSpec::ParameterConstraint;
using CallSpec::ParameterConstraintType;
using CallSpec::ParameterSpec;
using CallSpec::ParameterType;

namespace {

using Parameters = std::vector<std::shared_ptr<ParameterSpec>>;
/// The values given to each parameter. A flag has an empty one each time that it is given.
using GivenValues = std::map<const ParameterSpec*, std::vector<std::string>>;

std::string OptionName(const ParameterSpec& parameter) {
  return "--" + parameter.GetName();
}

bool IsFlag(const ParameterSpec& parameter) {
  return parameter.GetType() == ParameterType::kFlag;
}

/// The command's parameters, then the program's: of two with one name or letter, the first counts.
Parameters Joined(const InputSpec& command, const InputSpec& program) {
  Parameters parameters = command.GetParameters();
  const Parameters& shared = program.GetParameters();
  parameters.insert(parameters.end(), shared.begin(), shared.end());
  return parameters;
}

/// Null if no parameter has this name or letter, whichever `key` returns.
const ParameterSpec* Find(const Parameters& parameters,
                          const std::string& (ParameterSpec::*key)() const,
                          std::string_view wanted) {
  const auto found = std::ranges::find(parameters, wanted, key);
  return found == parameters.end() ? nullptr : found->get();
}

/// Reads a command line of options alone.
class OptionReader {
 public:
  /// Error messages list the first `own` parameters.
  OptionReader(const Parameters& parameters, std::size_t own, const std::vector<std::string>& words)
      : parameters_(parameters), own_(own), words_(words) {}

  GivenValues Read() {
    std::size_t next = 0;
    while (next < words_.size() && words_[next].size() > 1 && words_[next].starts_with('-')) {
      if (words_[next] == "--") {
        ++next;
        break;
      }
      next = ReadOption(next);
    }
    if (next < words_.size()) RefuseWord(next);
    return std::move(given_);
  }

 private:
  /// Returns the index of the word after the option and its value.
  std::size_t ReadOption(std::size_t index) {
    const std::string& word = words_[index];
    OptionWord read = ReadOptionWord(parameters_, word);
    if (!read.unknown.empty()) RefuseUnknownOption(read.unknown, word);
    for (const ParameterSpec* const option : read.options) {
      if (IsFlag(*option)) given_[option].emplace_back();
    }
    last_ = read.options.back();
    if (IsFlag(*last_)) {
      if (!read.value) return index + 1;
      throw UsageError(OptionName(*last_) + " takes no value, but was given " + Quote(*read.value));
    }
    if (read.takesNextWord && ++index == words_.size()) {
      throw UsageError(OptionName(*last_) + " needs a value: " + ValueInWords(*last_));
    }
    given_[last_].push_back(read.takesNextWord ? words_[index] : *read.value);
    return index + 1;
  }

  [[noreturn]] void RefuseUnknownOption(const std::string& option, const std::string& word) const {
    const bool isLetter = !option.starts_with("--");
    const bool isPart = isLetter && option != word;
    const std::string typed = isPart ? word.substr(1, word.find('=') - 1) : option.substr(2);
    std::vector<std::string> names;
    for (const auto& parameter : parameters_) names.push_back(parameter->GetName());
    std::vector<std::string> meant = Nearest(typed, names);
    for (std::string& name : meant) name.insert(0, "--");
    throw UsageError("Unknown option " + Quote(option) + (isPart ? " in " + Quote(word) : "") +
                     "; " + (meant.empty() ? OptionsInWords() : DidYouMean(meant)));
  }

  std::string OptionsInWords() const {
    if (own_ == 0) return "this command has no options of its own";
    return "the options are " + Join(std::span(parameters_).first(own_), ", ",
                                     [](const auto& parameter) { return OptionName(*parameter); });
  }

  /// Refuses a word that belongs to no option, perhaps because the one before was misunderstood.
  [[noreturn]] void RefuseWord(std::size_t index) const {
    std::string hint;
    if (last_ == nullptr) {
      hint = OptionsInWords();
    } else if (const std::string& before = words_[index - 1];
               before.starts_with('-') &&
               Find(parameters_, &ParameterSpec::GetName, before.substr(1)) != nullptr) {
      hint = DidYouMean({"-" + before});  // "-uuid X" was read as "-u uid" and X
    } else if (IsFlag(*last_)) {
      hint = OptionName(*last_) + " takes no value";
    } else if (last_->GetType() == ParameterType::kStringList) {
      hint = "repeat " + OptionName(*last_) + " before each of its values";
    } else {
      hint = OptionName(*last_) + " was given " + Quote(given_.at(last_).back()) +
             "; quote a value that contains blanks";
    }
    throw UsageError("Unexpected argument " + Quote(words_[index]) + "; " + hint);
  }

  const Parameters& parameters_;
  std::size_t own_;
  const std::vector<std::string>& words_;
  GivenValues given_;
  const ParameterSpec* last_ = nullptr;
};

[[noreturn]] void RefuseValue(const ParameterSpec& parameter, const std::string& text,
                              const std::string& suggestion = {}) {
  const std::string expected = "expected " + ValueInWords(parameter);
  // The suggestion first, because the list may be long.
  throw UsageError(
      "Invalid value " + Quote(text) + " for " + OptionName(parameter) +
      (suggestion.empty() ? ": " + expected : "; " + suggestion + " (" + expected + ")"));
}

void CheckText(const ParameterSpec& parameter, const std::string& text) {
  const auto& constraint = parameter.GetConstraint();
  if (!constraint || constraint->GetType() != ParameterConstraintType::kStringEnum) return;
  std::vector<std::string> allowed;
  for (const auto& [value, description] : constraint->GetStringEnums()) allowed.push_back(value);
  if (std::ranges::find(allowed, text) != allowed.end()) return;
  constexpr std::size_t kShortList = 3;  // needs no suggestion
  const bool isLong = allowed.size() > kShortList;
  RefuseValue(parameter, text, isLong ? DidYouMean(Nearest(text, allowed)) : "");
}

std::int64_t ToInt(const ParameterSpec& parameter, const std::string& text) {
  std::int64_t number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end) RefuseValue(parameter, text);
  const auto& constraint = parameter.GetConstraint();
  if (constraint && constraint->GetType() == ParameterConstraintType::kIntRange &&
      (number < constraint->GetIntMin() || number > constraint->GetIntMax())) {
    RefuseValue(parameter, text);
  }
  return number;
}

bool ToBool(const ParameterSpec& parameter, const std::string& text) {
  const std::string lower = LowerCase(text);
  if (lower == "true" || lower == "1" || lower == "yes" || lower == "on") return true;
  if (lower == "false" || lower == "0" || lower == "no" || lower == "off") return false;
  RefuseValue(parameter, text);
}

Input::Value ToValue(const ParameterSpec& parameter, const std::vector<std::string>& given) {
  if (parameter.GetType() == ParameterType::kFlag) return true;
  if (parameter.GetType() == ParameterType::kStringList) {
    for (const std::string& text : given) CheckText(parameter, text);
    return given;
  }
  if (given.size() > 1) {
    throw UsageError(OptionName(parameter) + " is given twice, as " + Quote(given[0]) + " and " +
                     Quote(given[1]) + "; it takes one value");
  }
  if (parameter.GetType() == ParameterType::kInt) return ToInt(parameter, given[0]);
  if (parameter.GetType() == ParameterType::kBool) return ToBool(parameter, given[0]);
  CheckText(parameter, given[0]);
  return given[0];
}

std::shared_ptr<Input> MakeInput(const InputSpec& spec, const GivenValues& given) {
  auto input = Input::New();
  std::vector<std::string> missing;
  for (const auto& parameter : spec.GetParameters()) {
    if (const auto values = given.find(parameter.get()); values != given.end()) {
      input->SetParameter(parameter->GetName(), ToValue(*parameter, values->second));
    } else if (parameter->IsRequired()) {
      missing.push_back(OptionName(*parameter) + " (" + ValueInWords(*parameter) + ")");
    }
  }
  if (missing.empty()) return input;
  throw UsageError(
      (missing.size() == 1 ? "Missing required parameter " : "Missing required parameters ") +
      Join(missing, ", "));
}

}  // namespace

CommandLine ParseCommandLine(const InputSpec& command, const InputSpec& program,
                             const std::vector<std::string>& arguments) {
  const Parameters parameters = Joined(command, program);
  const GivenValues given =
      OptionReader(parameters, command.GetParameters().size(), arguments).Read();
  return {MakeInput(command, given), MakeInput(program, given)};
}

std::shared_ptr<Input> ParseParameters(const InputSpec& spec,
                                       const std::vector<std::string>& arguments) {
  return ParseCommandLine(spec, InputSpec(), arguments).command;
}

OptionWord ReadOptionWord(const Parameters& parameters, std::string_view word) {
  OptionWord read;
  if (word.starts_with("--")) {
    const std::size_t equals = word.find('=');
    const auto* const option =
        Find(parameters, &ParameterSpec::GetName, word.substr(2, equals - 2));
    if (option == nullptr) {
      read.unknown = word.substr(0, equals);
      return read;
    }
    read.options.push_back(option);
    if (equals != std::string_view::npos) read.value = word.substr(equals + 1);
    read.takesNextWord = !IsFlag(*option) && !read.value;
    return read;
  }
  for (std::size_t next = 1; next < word.size();) {
    const std::string_view letter = word.substr(next++, 1);
    const auto* const option = Find(parameters, &ParameterSpec::GetShortName, letter);
    if (option == nullptr) {
      read.unknown = "-" + std::string(letter);
      break;
    }
    read.options.push_back(option);
    if (IsFlag(*option)) continue;
    read.takesNextWord = next == word.size();
    if (!read.takesNextWord) read.value = word.substr(next);
    break;
  }
  return read;
}

bool AsksForHelp(const InputSpec& command, const InputSpec& program,
                 const std::vector<std::string>& arguments) {
  const Parameters parameters = Joined(command, program);
  for (auto word = arguments.begin(); word != arguments.end() && *word != "--"; ++word) {
    if (*word == "help") return true;
    if (!word->starts_with('-')) continue;
    const OptionWord read = ReadOptionWord(parameters, *word);
    if (std::ranges::find(read.options, "help", &ParameterSpec::GetName) != read.options.end()) {
      return true;
    }
    if (read.takesNextWord && word + 1 != arguments.end()) ++word;
  }
  return false;
}

std::string AllowedValues(const ParameterConstraint& constraint) {
  if (constraint.GetType() == ParameterConstraintType::kIntRange) {
    return std::to_string(constraint.GetIntMin()) + " to " + std::to_string(constraint.GetIntMax());
  }
  std::vector<std::string> values;
  for (const auto& [value, description] : constraint.GetStringEnums()) values.push_back(value);
  return Join(values, ", ");
}

std::string ValueInWords(const ParameterSpec& parameter) {
  const auto& constraint = parameter.GetConstraint();
  switch (parameter.GetType()) {
    case ParameterType::kFlag:
      return {};
    case ParameterType::kBool:
      return "true or false (also 1/0, yes/no, on/off)";
    case ParameterType::kInt:
      return constraint ? "a whole number from " + AllowedValues(*constraint)
                        : "a whole number of at most 64 bits";
    default:
      break;
  }
  if (!constraint) return "text";
  constexpr std::size_t kMost = 20;  // a longer list would hide the rest of the message
  const std::size_t count = constraint->GetStringEnums().size();
  return "one of " + (count > kMost ? std::to_string(count) + " names, which the manual lists"
                                    : AllowedValues(*constraint));
}

}  // namespace CliTools
