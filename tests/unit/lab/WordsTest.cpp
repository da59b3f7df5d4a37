#include <gtest/gtest.h>

#include "clitools/Text.h"
#include "clitools/UsageError.h"
#include "clitools/Words.h"

namespace {

using namespace CliTools;

std::string Split(std::string_view line) try {
  std::string text;
  for (const std::string& word : SplitWords(line)) text += "<" + word + ">";
  return text;
} catch (const UsageError& error) {
  return error.what();
}

TEST(Words, AreThoseOfAShell) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"  a\tb  c\r", "<a><b><c>"},
      {"a # b 'c", "<a>"},
      {"a#b c\\#d '#' \\# e", "<a#b><c#d><#><#><e>"},
      {"'a b'\"c d\"e\\ f", "<a bc de f>"},
      {"'' \"\" a''", "<><><a>"},
      {R"('\n"\' "\"\\\n'")", R"(<\n"\><"\\n'>)"},
      {R"("\$\`\a")", R"(<$`\a>)"},
      {"a 'b", "the quote ' in column 3 has no end"},
      {"\"a\\\"", "the quote \" in column 1 has no end"},
      {"a \\", "nothing follows the backslash at the end of the line"},
  };
  for (const auto& [line, expected] : cases) EXPECT_EQ(Split(line), expected) << line;
}

}  // namespace
