#include <gtest/gtest.h>

#include <cstdlib>

#include "clitools/Display.h"

namespace {

using namespace CliTools;
using namespace std::string_literals;

TEST(Display, ReplacesWhatIsNotUtf8) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"a\xC3\xA9\xE6\xBC\xA2\xF0\x9F\x98\x80", "aé漢😀"},
      {"\x80|\xF5\x80\x80\x80|\xC3", "\uFFFD|\uFFFD\uFFFD\uFFFD\uFFFD|\uFFFD"},
      {"\xE6\xBC|x", "\uFFFD|x"},                        // truncated: the rest stays
      {"\xC0\xAF", "\uFFFD\uFFFD"},                      // overlong
      {"\xE0\x80\x80", "\uFFFD\uFFFD\uFFFD"},            // overlong
      {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},            // surrogate
      {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},  // above U+10FFFF
      {"\xF0\x8F\xBF\xBF", "\uFFFD\uFFFD\uFFFD\uFFFD"},  // overlong
      {"\xEF\xBF\xBF\xF4\x8F\xBF\xBF", "\uFFFF\U0010FFFF"},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(ValidUtf8(text), expected);
}

TEST(Display, ShowsPeopleNoCharacterThatATerminalActsOn) {
  EXPECT_EQ(Printable("a\n\r\t\x1b[2J\x7f\0\u009b|\u061c\u202e\u2028\u200f\u2066|\\ é\u2010\xff"s),
            R"(a\n\r\t\x1b[2J\x7f\x00\x9b|\u061c\u202e\u2028\u200f\u2066|\ é)"
            "\u2010\uFFFD");
  EXPECT_EQ(Quote("a\nb"), "\"a\\nb\"");
}

TEST(Display, MeasuresColumnsWhateverTheProcessLocale) {
  ASSERT_EQ(MB_CUR_MAX, 1U);  // this locale knows no Unicode
  EXPECT_EQ(DisplayWidth("abc"), 3U);
  EXPECT_EQ(DisplayWidth("漢字"), 4U);
  EXPECT_EQ(DisplayWidth("e\u0301\uFFFD"), 2U);
  EXPECT_EQ(MB_CUR_MAX, 1U);
}

}  // namespace
