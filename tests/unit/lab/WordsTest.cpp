#include <gtest/gtest.h>

#include <sstream>

#include "clitools/UsageError.h"
#include "clitools/Words.h"

namespace {

using namespace CliTools;

std::string Split(const std::string& lines) try {
  WordScanner scanner;
  std::istringstream stream(lines);
  for (std::string line; std::getline(stream, line);) scanner.Scan(line);
  std::string text;
  for (const std::string& word : scanner.TakeWords()) text += "<" + word + ">";
  return text;
} catch (const UsageError& error) {
  return error.what();
}

TEST(Words, AreThoseOfAShell) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"  a\tb  c", "<a><b><c>"},
      {"a # b 'c", "<a>"},
      {"a#b c\\#d '#' \\# e", "<a#b><c#d><#><#><e>"},
      {"'a b'\"c d\"e\\ f", "<a bc de f>"},
      {"'' \"\" a''", "<><><a>"},
      {R"('\n"\' "\"\\\n'")", R"(<\n"\><"\\n'>)"},
      {R"("\$\`\a")", R"(<$`\a>)"},
      {"a 'b", "the quote ' in column 3 has no end"},
      {"\"a\\\"", "the quote \" in column 1 has no end"},
      {"a\\\nb \\\n# c", "<ab>"},
      {"a\\\n\\\n#b \\\n'", "the quote ' in column 5 has no end"},
      {"a \\", "nothing follows the backslash at the end of the line"},
  };
  for (const auto& [line, expected] : cases) EXPECT_EQ(Split(line), expected) << line;
}

}  // namespace
