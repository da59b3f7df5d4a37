#include <gmock/gmock.h>

#include "clitools/Markdown.h"

namespace {

using namespace CliTools;
using testing::EndsWith;

TEST(Markdown, EscapesWhatMarkdownWouldActOn) {
  MarkdownPage page("T", "");
  page.Paragraph(
      "<b> & [x](y) `c` *i* _u_ a|b #1 ~~s~~ C:\\d\n- no item\n12. nor this\n3)that\n4 is none\n"
      "+a\n\n  ==\n7");
  page.Definitions({{"-u, --u_v", "one\n- two", "a|b"}, {"--wait", ""}});
  EXPECT_THAT(page.GetText(),
              EndsWith("\n\\<b\\> \\& \\[x\\](y) \\`c\\` \\*i\\* \\_u\\_ a\\|b \\#1 \\~\\~s\\~\\~ "
                       "C:\\\\d\\\n\\- no item\\\n12\\. nor this\\\n3\\)that\\\n"
                       "4 is none\\\n\\+a\\\n\\==\\\n7\n"
                       "\n- **-u, --u\\_v** (a\\|b)\\\n  one\\\n  \\- two\n\n- **--wait**\n"));
}

}  // namespace
