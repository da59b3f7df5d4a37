#include "clitools/CommandLine.h"

#include <getopt.h>

#include <algorithm>
#include <charconv>
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
using ParameterRange = std::span<const std::shared_ptr<ParameterSpec>>;
/// The values given to each parameter, in the parameters' order; a flag is given as one value.
using GivenValues = std::vector<std::vector<std::string>>;

/// What getopt_long returns for the first parameter's long name: above every short name.
constexpr int kFirstLongName = 256;

std::string OptionName(const ParameterSpec& parameter) {
  return "--" + parameter.GetName();
}

bool IsFlag(const ParameterSpec& parameter) {
  return parameter.GetType() == ParameterType::kFlag;
}

/// The command's parameters, then the program's.
Parameters Joined(const InputSpec& command, const InputSpec& program) {
  Parameters parameters = command.GetParameters();
  const Parameters& shared = program.GetParameters();
  parameters.insert(parameters.end(), shared.begin(), shared.end());
  return parameters;
}

bool HasLongName(const Parameters& parameters, std::string_view name) {
  return std::ranges::find(parameters, name, &ParameterSpec::GetName) != parameters.end();
}

/// getopt_long over parameters, of which the first `own` are those that are told of. Of several
/// with one name or letter, the first one counts.
class OptionReader {
 public:
  OptionReader(const Parameters& parameters, std::size_t own,
               const std::vector<std::string>& arguments)
      : parameters_(parameters), own_(own), words_(arguments), given_(parameters.size()) {
    words_.emplace(words_.begin());  // where a program has its own name
    for (std::string& word : words_) argv_.push_back(word.data());
    argv_.push_back(nullptr);
    for (const auto& parameter : parameters) {
      const bool isFlag = IsFlag(*parameter);
      longNames_.push_back({parameter->GetName().c_str(), isFlag ? no_argument : required_argument,
                            nullptr, kFirstLongName + static_cast<int>(longNames_.size())});
      const std::string& letter = parameter->GetShortName();
      // getopt_long returns "?" and ":" for errors, and gives ":" and ";" meanings of their own.
      if (letter.size() != 1 || letter.find_first_of("?:;") != std::string::npos) continue;
      shortNames_ += letter;
      if (!isFlag) shortNames_ += ':';
    }
    longNames_.push_back({});
  }

  GivenValues Read() {
    optind = 0;  // begins anew
    while (ReadOption()) continue;
    if (const auto next = static_cast<std::size_t>(optind); next < words_.size()) RefuseWord(next);
    return std::move(given_);
  }

 private:
  /// False if there is no further option.
  bool ReadOption() {
    const std::size_t next = std::max<std::size_t>(1, static_cast<std::size_t>(optind));
    const std::string_view word = next < words_.size() ? words_[next] : std::string_view();
    CheckLongName(word);
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the header says so
    const int code = getopt_long(static_cast<int>(words_.size()), argv_.data(), shortNames_.c_str(),
                                 longNames_.data(), nullptr);
    if (code == -1) return false;
    if (code == '?' && optopt < kFirstLongName) RefuseUnknownLetter(word);
    const std::size_t index = IndexOf(code == '?' || code == ':' ? optopt : code);
    last_ = parameters_[index].get();
    if (code == ':') {
      throw UsageError(OptionName(*last_) + " needs a value: " + ValueInWords(*last_));
    }
    if (code == '?') {  // the option is known: it is a flag that was given a value
      throw UsageError(OptionName(*last_) + " takes no value, but was given " +
                       Quote(word.substr(word.find('=') + 1)));
    }
    lastValue_ = optarg == nullptr ? "" : optarg;
    given_[index].push_back(lastValue_);
    return true;
  }

  /// Refuses a long option that is not spelt out in full, before getopt_long takes an abbreviation
  /// for the whole.
  void CheckLongName(std::string_view word) const {
    if (!word.starts_with("--") || word == "--") return;
    const std::string_view name = word.substr(2, word.find('=') - 2);
    if (!HasLongName(parameters_, name)) {
      RefuseUnknownOption(Quote("--" + std::string(name)), name);
    }
  }

  [[noreturn]] void RefuseUnknownLetter(std::string_view word) const {
    const std::string letter = {'-', static_cast<char>(optopt)};
    if (word == letter) RefuseUnknownOption(Quote(letter), "");
    RefuseUnknownOption(Quote(letter) + " in " + Quote(word), word.substr(1, word.find('=') - 1));
  }

  /// `word` is what was typed, without hyphens and value.
  [[noreturn]] void RefuseUnknownOption(const std::string& given, std::string_view word) const {
    std::vector<std::string> names;
    for (const auto& parameter : parameters_) names.push_back(parameter->GetName());
    std::vector<std::string> meant = Nearest(word, names);
    for (std::string& name : meant) name.insert(0, "--");
    throw UsageError("Unknown option " + given + "; " +
                     (meant.empty() ? OptionsInWords() : DidYouMean(meant)));
  }

  /// What there is, for somebody who gave something else.
  std::string OptionsInWords() const {
    if (own_ == 0) return "there are no options here but the program's own";
    return "the options are " + Join(ParameterRange(parameters_).first(own_), ", ",
                                     [](const auto& parameter) { return OptionName(*parameter); });
  }

  /// The parameter for which getopt_long returned `code`.
  std::size_t IndexOf(int code) const {
    if (code >= kFirstLongName) return static_cast<std::size_t>(code - kFirstLongName);
    const std::string letter(1, static_cast<char>(code));
    const auto found = std::ranges::find(parameters_, letter, &ParameterSpec::GetShortName);
    return static_cast<std::size_t>(found - parameters_.begin());
  }

  /// A word that belongs to no option: the one before it may have been misunderstood.
  [[noreturn]] void RefuseWord(std::size_t index) const {
    const std::string_view before = words_[index - 1];
    std::string hint;
    if (last_ == nullptr) {
      hint = OptionsInWords();
    } else if (before.starts_with('-') && HasLongName(parameters_, before.substr(1))) {
      hint = DidYouMean({"-" + std::string(before)});  // "-uuid X" was read as "-u uid" and X
    } else if (IsFlag(*last_)) {
      hint = OptionName(*last_) + " takes no value";
    } else if (last_->GetType() == ParameterType::kStringList) {
      hint = "repeat " + OptionName(*last_) + " before each of its values";
    } else {
      hint = OptionName(*last_) + " was given " + Quote(lastValue_) +
             "; a value with blanks stands in quotes";
    }
    throw UsageError("Unexpected argument " + Quote(words_[index]) + "; " + hint);
  }

  const Parameters& parameters_;
  std::size_t own_;
  std::vector<std::string> words_;
  std::vector<char*> argv_;
  std::string shortNames_ = "+:";  // nothing is reordered or printed; a missing value is told apart
  std::vector<option> longNames_;
  GivenValues given_;
  const ParameterSpec* last_ = nullptr;
  std::string lastValue_;
};

[[noreturn]] void RefuseValue(const ParameterSpec& parameter, const std::string& text,
                              const std::string& suggestion = {}) {
  const std::string expected = "expected " + ValueInWords(parameter);
  // The suggestion stands first: the list may be long.
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
  constexpr std::size_t kSeenAtAGlance = 3;
  const bool isLong = allowed.size() > kSeenAtAGlance;
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

std::shared_ptr<Input> MakeInput(ParameterRange parameters,
                                 std::span<const std::vector<std::string>> given) {
  auto input = Input::New();
  std::vector<std::string> missing;
  for (std::size_t index = 0; index < parameters.size(); ++index) {
    const ParameterSpec& parameter = *parameters[index];
    if (!given[index].empty()) {
      input->SetParameter(parameter.GetName(), ToValue(parameter, given[index]));
    } else if (parameter.IsRequired()) {
      missing.push_back(OptionName(parameter) + " (" + ValueInWords(parameter) + ")");
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
  const std::size_t own = command.GetParameters().size();
  const GivenValues given = OptionReader(parameters, own, arguments).Read();
  const ParameterRange all = parameters;
  const std::span values = given;
  return {MakeInput(all.first(own), values.first(own)),
          MakeInput(all.subspan(own), values.subspan(own))};
}

std::shared_ptr<Input> ParseParameters(const InputSpec& spec,
                                       const std::vector<std::string>& arguments) {
  return ParseCommandLine(spec, InputSpec(), arguments).command;
}

OptionWord ReadOptionWord(const Parameters& parameters, std::string_view word) {
  OptionWord read;
  if (word.starts_with("--")) {
    const std::string_view name = word.substr(2, word.find('=') - 2);
    const auto option = std::ranges::find(parameters, name, &ParameterSpec::GetName);
    if (option == parameters.end()) return read;
    return {{option->get()}, !IsFlag(**option) && word.find('=') == std::string_view::npos};
  }
  for (std::size_t index = 1; index < word.size(); ++index) {
    const auto option =
        std::ranges::find(parameters, word.substr(index, 1), &ParameterSpec::GetShortName);
    if (option == parameters.end()) break;
    read.options.push_back(option->get());
    if (IsFlag(**option)) continue;
    read.takesNextWord = index + 1 == word.size();
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
    const auto [options, takesNextWord] = ReadOptionWord(parameters, *word);
    if (std::ranges::find(options, "help", &ParameterSpec::GetName) != options.end()) return true;
    if (takesNextWord && word + 1 != arguments.end()) ++word;
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
  constexpr std::size_t kMost = 20;  // more would bury all that stands around them
  const std::size_t count = constraint->GetStringEnums().size();
  return "one of " + (count > kMost ? std::to_string(count) + " names, which the manual lists"
                                    : AllowedValues(*constraint));
}

}  // namespace CliTools
