#include "clitools/Completion.h"

#include <algorithm>
#include <set>
#include <string_view>

#include "clitools/Help.h"
#include "clitools/PluginError.h"

namespace CliTools {

using AutoCli::Command;
using AutoCli::CommandSpec;
using CallSpec::InputSpec;
using CallSpec::ParameterSpec;
using CallSpec::ParameterType;

namespace {

using Candidates = std::vector<Candidate>;
using Word = std::vector<std::string>::const_iterator;

Candidate HelpOption() {
  return {"--help", "Tell what this is and what it takes."};
}

/// A description's first sentence: there is one line for it.
std::string FirstSentence(const std::string& text) {
  const std::size_t begin = std::min(text.find_first_not_of(' '), text.size());
  std::size_t end = text.find('\n', begin);
  if (const std::size_t stop = text.find(". ", begin); stop < end) end = stop + 1;
  return text.substr(begin, end == std::string::npos ? end : end - begin);
}

/// Options and their values, which follow each other up to the word that is typed.
class OptionWords {
 public:
  OptionWords(const InputSpec& spec, std::string path, const ValueSource& values)
      : spec_(spec), path_(std::move(path)), values_(values) {}

  /// Takes the words from `word` on that are options or values of them; returns where it stopped.
  Word Take(Word word, Word end) {
    for (; word != end && (awaited_ != nullptr || word->starts_with('-')); ++word) {
      if (awaited_ != nullptr) {
        awaited_ = nullptr;
        continue;
      }
      const ParameterSpec* const option = Find(*word);
      if (option == nullptr) continue;
      given_.insert(option->GetName());
      const bool isWhole = *word == "--" + option->GetName() || word->size() == 2;
      if (isWhole && option->GetType() != ParameterType::kFlag) awaited_ = option;
    }
    return word;
  }

  /// Whether the next word is the value of an option, whatever it looks like.
  bool AwaitsValue() const { return awaited_ != nullptr; }

  Candidates Values() const { return ValuesOf(*awaited_); }

  /// The options that can still be given; or the values, when `typed` is "--option=".
  Candidates Options(const std::string& typed) const {
    Candidates candidates;
    if (const std::size_t equals = typed.find('='); equals != std::string::npos) {
      const ParameterSpec* const option = Find(typed);
      if (option != nullptr) candidates = ValuesOf(*option);
      for (Candidate& value : candidates) {
        if (value.text != kAnyPath) value.text.insert(0, typed, 0, equals + 1);
      }
      return candidates;
    }
    for (const auto& option : spec_.GetParameters()) {
      if (given_.contains(option->GetName()) && option->GetType() != ParameterType::kStringList) {
        continue;
      }
      candidates.push_back({"--" + option->GetName(), FirstSentence(DescriptionOf(*option))});
    }
    // Not unasked: it would be put in behind every command that takes nothing.
    if (!path_.empty() && typed.starts_with('-')) candidates.push_back(HelpOption());
    return candidates;
  }

 private:
  /// The option that the word names: "--name", "--name=...", "-x", "-x...". Null if there is none.
  const ParameterSpec* Find(std::string_view word) const {
    for (const auto& option : spec_.GetParameters()) {
      const bool isName = word.substr(0, word.find('=')) == "--" + option->GetName();
      const bool isLetter = !option->GetShortName().empty() && !word.starts_with("--") &&
                            word.substr(1).starts_with(option->GetShortName());
      if (isName || isLetter) return option.get();
    }
    return nullptr;
  }

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

  const InputSpec& spec_;
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

Candidates CompleteTyped(const InputSpec& programOptions, const CommandSpec& root,
                         const std::vector<std::string>& words, const ValueSource& values) {
  const std::string& typed = words.back();
  const Word last = words.end() - 1;
  OptionWords before(programOptions, "", values);
  Word word = before.Take(words.begin(), last);
  if (before.AwaitsValue()) return before.Values();
  if (word == last && typed.starts_with('-')) return before.Options(typed);

  const CommandSpec* space = &root;
  for (; word != last; ++word) {
    const auto child = space->GetNamespaceNode(*word);
    space = dynamic_cast<const CommandSpec*>(child.get());
    if (space == nullptr) return {};
    const auto command = std::dynamic_pointer_cast<Command>(child);
    if (!command) continue;
    const auto spec = InputOf(*command);
    OptionWords options(*spec, PathOf(*command), values);
    if (options.Take(word + 1, last) != last) return {};
    return options.AwaitsValue() ? options.Values() : options.Options(typed);
  }
  return typed.starts_with('-') ? Candidates{HelpOption()} : ChildrenOf(*space);
}

}  // namespace

Candidates Complete(const InputSpec& programOptions, const CommandSpec& root,
                    const std::vector<std::string>& words, const ValueSource& values) {
  Candidates candidates = CompleteTyped(programOptions, root, words, values);
  std::erase_if(candidates, [&words](const Candidate& candidate) {
    return !candidate.text.starts_with(words.back()) && candidate.text != kAnyPath;
  });
  return candidates;
}

}  // namespace CliTools
