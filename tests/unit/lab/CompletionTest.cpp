#include <gtest/gtest.h>

#include "Tree.h"
#include "baselibs/Strings.h"
#include "clitools/Candidates.h"
#include "clitools/Display.h"

namespace {

using namespace CliTools;
using BaseLibs::Join;
using Words = std::vector<std::string>;

TEST(Completion, OffersWhatMayFollow) {
  const Tree tree;
  FakeCommand& remove = *tree.remove;
  remove.Add("uuid", "u", ParameterType::kString, "The disk. In full.");
  remove.Add("tag", "t", ParameterType::kStringList, "Its tags\nif any");
  remove.Add("wait", "w", ParameterType::kFlag, "");
  remove.Add("force", "", ParameterType::kBool, "");
  const auto modes = ParameterConstraint::New(ParameterConstraintType::kStringEnum);
  for (const char* mode : {"all", "any", "none"}) modes->AddStringEnum(mode, "");
  remove.Add("mode", "m", ParameterType::kString, "One of %ENUM%.").SetConstraint(modes);
  const auto options = InputSpec::New();
  options->AddParameter(ParameterSpec::New("host", ParameterType::kString));
  options->AddParameter(ParameterSpec::New("lab", ParameterType::kString));
  options->AddParameter(ParameterSpec::New("list", ParameterType::kFlag));
  const auto withCommand = InputSpec::New();
  withCommand->AddParameter(ParameterSpec::New("host", ParameterType::kString));
  withCommand->AddParameter(ParameterSpec::New("help", ParameterType::kFlag));
  const ValueSource values = [](const std::string& path, const std::string& parameter) {
    if (parameter == "lab") return std::vector<Candidate>{{kAnyPath, ""}};
    return std::vector<Candidate>{{path + "|" + parameter, ""}, {"x", ""}};
  };
  const std::vector<std::pair<Words, std::string>> cases = {
      {{""}, "disk"},
      {{"--host="}, "--host=|host --host=x"},
      {{"--host", "disk", "dis"}, "disk"},
      {{"disk", "-"}, "--host --help"},
      {{"help", "disk", "help", "t"}, "tag"},
      {{"disk", "remove", ""}, "--uuid --tag --wait --force --mode"},
      {{"disk", "remove", "-u1", "-t", "a", "--mode=all", "-w", "-"},
       "--tag --force --host --help"},
      {{"disk", "remove", "-u", "--wait", "--w"}, "--wait"},
      {{"disk", "remove", "--mode=n"}, "--mode=none"},
      {{"disk", "remove", "--force", ""}, "true false"},
      {{"disk", "remove", "--wait="}, ""},
  };
  for (const auto& [words, expected] : cases) {
    Words texts;
    for (auto& candidate : Complete({*options, *withCommand}, *tree.root, words, values)) {
      texts.push_back(std::move(candidate.text));
    }
    EXPECT_EQ(Join(texts, " "), expected) << Join(words, " ");
  }
  const auto described =
      Complete({*options, *withCommand}, *tree.root, {"disk", "remove", "--"}, values);
  EXPECT_EQ(described[0].description, "The disk.");
  EXPECT_EQ(described[1].description, "Its tags");
  EXPECT_EQ(described[4].description, "One of all, any, none.");
}

}  // namespace
