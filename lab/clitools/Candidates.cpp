#include "clitools/Candidates.h"

#include <algorithm>
#include <set>
#include <span>
#include <string_view>

#include "clitools/CommandLine.h"
#include "clitools/Help.h"
#include "clitools/Nodes.h"
#include "clitools/PluginError.h"

namespace CliTools {

using AutoCli::Command;
using AutoCli::CommandSpec;
using CallSpec::ParameterSpec;
using CallSpec::ParameterType;

namespace {

using Candidates = std::vector<Candidate>;
using Parameters = std::vector<std::shared_ptr<ParameterSpec>>;
using Word = std::vector<std::string>::const_iterator;

/// Shells show one line per candidate.
std::string FirstSentence(const std::string& text) {
  const std::size_t begin = std::min(text.find_first_not_of(' '), text.size());
  std::size_t end = text.find('\n', begin);
  if (const std::size_t stop = text.find(". ", begin); stop < end) end = stop + 1;
  return text.substr(begin, end == std::string::npos ? end : end - begin);
}

/// Options and their values, which may be anywhere before the word to complete.
class OptionWords {
 public:
  OptionWords(const ProgramOptions& program, const ValueSource& values)
      : program_(program), parameters_(program.alone.GetParameters()), values_(values) {}

  /// Switches to the options that are valid after `path`: the program's options for commands and,
  /// if it is a command's, the parameters.
  void Enter(const std::string& path, Parameters parameters) {
    path_ = path;
    own_ = parameters.size();
    parameters_ = std::move(parameters);
    const Parameters& shared = program_.withCommand.GetParameters();
    parameters_.insert(parameters_.end(), shared.begin(), shared.end());
  }

  /// Skips options and their values. Returns the first word that is neither.
  Word Take(Word word, Word end) {
    for (; word != end && (awaited_ != nullptr || word->starts_with('-')); ++word) {
      if (awaited_ != nullptr) {
        awaited_ = nullptr;
        continue;
      }
      const OptionWord read = ReadOptionWord(parameters_, *word);
      for (const ParameterSpec* const option : read.options) given_.insert(option->GetName());
      if (read.takesNextWord) awaited_ = read.options.back();
    }
    return word;
  }

  /// Whether the next word is an option's value.
  bool AwaitsValue() const { return awaited_ != nullptr; }

  Candidates Values() const { return ValuesOf(*awaited_); }

  /// Returns the options that can still be given; for "--option=..." and "-x..." the values.
  Candidates Options(const std::string& typed) const {
    Candidates candidates;
    const OptionWord read = ReadOptionWord(parameters_, typed);
    if (read.value || (read.takesNextWord && !typed.starts_with("--"))) {
      const std::string prefix = typed.substr(0, typed.size() - read.value.value_or("").size());
      candidates = ValuesOf(*read.options.back());
      for (Candidate& value : candidates) {
        if (value.text != kAnyPath) value.text.insert(0, prefix);
      }
      return candidates;
    }
    // The program's options only after a hyphen: otherwise a shell would insert them after every
    // command that has no parameters of its own.
    const std::size_t offered = typed.starts_with('-') ? parameters_.size() : own_;
    for (const auto& option : std::span(parameters_).first(offered)) {
      if (given_.contains(option->GetName()) && option->GetType() != ParameterType::kStringList) {
        continue;
      }
      candidates.push_back({"--" + option->GetName(), FirstSentence(DescriptionOf(*option))});
    }
    return candidates;
  }

 private:
  Candidates ValuesOf(const ParameterSpec& option) const {
    if (option.GetType() == ParameterType::kFlag) return {};
    if (option.GetType() == ParameterType::kBool) return {{"true", ""}, {"false", ""}};
    const auto& constraint = option.GetConstraint();
    if (!constraint) return values_(path_, option.GetName());
    Candidates candidates;
    for (const auto& [value, description] : constraint->GetStringEnums()) {
      candidates.push_back({value, description});
    }
    return candidates;
  }

  const ProgramOptions& program_;
  Parameters parameters_;
  std::size_t own_ = 0;  ///< number of the command's parameters, which come first
  std::string path_;
  const ValueSource& values_;
  const ParameterSpec* awaited_ = nullptr;
  std::set<std::string> given_;
};

Candidates ChildrenOf(const CommandSpec& space) {
  Candidates candidates;
  for (const auto& child : space.GetChildren()) {
    candidates.push_back({child->GetName(), FirstSentence(child->GetDescription())});
  }
  return candidates;
}

Candidates CompleteTyped(const ProgramOptions& program, const CommandSpec& root,
                         const std::vector<std::string>& words, const ValueSource& values) {
  const std::string& typed = words.back();
  const Word last = words.end() - 1;
  OptionWords options(program, values);
  const CommandSpec* space = &root;
  bool inCommand = false;
  Word word = options.Take(words.begin(), last);
  for (; word != last; word = options.Take(word + 1, last)) {
    const auto child = inCommand ? nullptr : space->GetNamespaceNode(*word);
    if (!inCommand && !child && *word == "help") continue;  // "help" may precede a path
    space = dynamic_cast<const CommandSpec*>(child.get());
    if (space == nullptr) return {};
    const auto command = std::dynamic_pointer_cast<Command>(child);
    inCommand = command != nullptr;
    options.Enter(PathOf(*space), inCommand ? InputOf(*command)->GetParameters() : Parameters());
  }
  if (options.AwaitsValue()) return options.Values();
  return inCommand || typed.starts_with('-') ? options.Options(typed) : ChildrenOf(*space);
}

}  // namespace

Candidates Complete(const ProgramOptions& program, const CommandSpec& root,
                    const std::vector<std::string>& words, const ValueSource& values) {
  Candidates candidates = CompleteTyped(program, root, words, values);
  std::erase_if(candidates, [&words](const Candidate& candidate) {
    return !candidate.text.starts_with(words.back()) && candidate.text != kAnyPath;
  });
  return candidates;
}

}  // namespace CliTools
