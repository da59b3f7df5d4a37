#include <gmock/gmock.h>

#include "clitools/ManualPage.h"

namespace {

using namespace CliTools;
using testing::EndsWith;

TEST(ManualPage, EscapesWhatMarkdownWouldActOn) {
  MarkdownPage page("T", "");
  page.Paragraph(
      "<b> & [x](y) `c` *i* _u_ a|b #1 ~~s~~ C:\\d\n- no item\n12. nor this\n3)that\n4 is none\n"
      "+a\n\n  ==\n7");
  EXPECT_THAT(page.GetText(),
              EndsWith("\n\\<b\\> \\& \\[x\\](y) \\`c\\` \\*i\\* \\_u\\_ a\\|b \\#1 \\~\\~s\\~\\~ "
                       "C:\\\\d<br>\n\\- no item<br>\n12\\. nor this<br>\n3\\)that<br>\n"
                       "4 is none<br>\n\\+a<br>\n\\==<br>\n7\n"));
}

TEST(ManualPage, EscapesWhatManWouldActOn) {
  RoffPage page("t.1", "p", "q");
  page.Paragraph(".br \\n \"q\" ~^`'\n'x\n\n.TH -a");
  page.Section("a \"b\"");
  page.Subsection("c \"d\"");
  page.Code("a  -b\n.c");
  page.Options({{{"-u", "--uuid"}, "one of a|b", true, "first\n    second | \"x\""},
                {{"--wait"}, "", false, ".It's"}});
  EXPECT_EQ(page.GetText(),
            ".TH T 1 \"\" \"p\"\n.nh\n.ad l\n.SH \"NAME\"\nt \\- q\n"
            ".PP\n\\&.br \\en \\(dqq\\(dq \\(ti\\(ha\\(ga\\(aq\n.br\n\\(aqx\n.br\n\\&.TH \\-a\n"
            ".SH \"A \\(dqB\\(dq\"\n.SS \"c \\(dqd\\(dq\"\n"
            ".PP\n.RS 4\n.nf\na  \\-b\n\\&.c\n.fi\n.RE\n"
            ".TP\n\\fB\\-u\\fR, \\fB\\-\\-uuid\\fR (one of a|b), required\nfirst\n.br\nsecond | "
            "\\(dqx\\(dq\n"
            ".TP\n\\fB\\-\\-wait\\fR\n\\&.It\\(aqs\n");
}

}  // namespace
