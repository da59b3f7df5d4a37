#include <gtest/gtest.h>

#include <functional>

#include "clitools/ManualPage.h"

namespace {

using namespace CliTools;

/// What `write` adds to an empty page.
template <class Page>
std::string Added(Page page, const std::function<void(ManualPage&)>& write) {
  const std::size_t begin = page.GetText().size();
  write(page);
  return page.GetText().substr(begin);
}

const std::vector<ManualPage::Option> kOptions = {
    {{"-u", "--uuid"}, "one of a|b", true, "first\n    second | \"x\""},
    {{"--wait"}, "", false, ".It's"},
};

TEST(ManualPage, EscapesWhatMarkdownWouldActOn) {
  const auto added = [](const std::function<void(ManualPage&)>& write) {
    return Added(MarkdownPage("T", ""), write);
  };
  const std::pair<const char*, const char*> paragraphs[] = {
      {R"(<b> & [x](y) `c` *i* _u_ a|b #1 ~~s~~ C:\d)",
       R"(\<b\> \& \[x\](y) \`c\` \*i\* \_u\_ a\|b \#1 \~\~s\~\~ C:\\d)"},
      {"- no item\n12. nor this\n3)that\n4 is none",
       "\\- no item<br>\n12\\. nor this<br>\n3\\)that<br>\n4 is none"},
      {"+a\n\n  ==\n7", "\\+a<br>\n\\==<br>\n7"},
  };
  for (const auto& paragraph : paragraphs) {
    EXPECT_EQ(added([&](ManualPage& page) { page.Paragraph(paragraph.first); }),
              '\n' + std::string(paragraph.second) + '\n');
  }
  EXPECT_EQ(added([](ManualPage& page) { page.Paragraph(""); }), "");
  EXPECT_EQ(added([](ManualPage& page) { page.Code("a | b_c"); }), "\n```\na | b_c\n```\n");
  EXPECT_EQ(added([](ManualPage& page) { page.Options(kOptions); }),
            "\n| Option | Value | Required | Description |\n|---|---|---|---|\n"
            "| `-u`, `--uuid` | one of a\\|b | yes | first<br>second \\| \"x\" |\n"
            "| `--wait` |  | no | .It's |\n");
}

TEST(ManualPage, EscapesWhatManWouldActOn) {
  const auto added = [](const std::function<void(ManualPage&)>& write) {
    return Added(RoffPage("t.1", "p", "q"), write);
  };
  EXPECT_EQ(added([](ManualPage& page) { page.Paragraph(".br \\n \"q\" ~^`'\n'x\n\n.TH -a"); }),
            ".PP\n\\&.br \\en \\(dqq\\(dq \\(ti\\(ha\\(ga\\(aq\n.br\n\\(aqx\n.br\n\\&.TH \\-a\n");
  EXPECT_EQ(added([](ManualPage& page) { page.Section("a \"b\""); }), ".SH \"A \\(dqB\\(dq\"\n");
  EXPECT_EQ(added([](ManualPage& page) { page.Code("a  -b\n.c"); }),
            ".PP\n.RS 4\n.nf\na  \\-b\n\\&.c\n.fi\n.RE\n");
  EXPECT_EQ(added([](ManualPage& page) { page.Options(kOptions); }),
            ".TP\n\\fB\\-u\\fR, \\fB\\-\\-uuid\\fR (one of a|b), required\nfirst\n.br\nsecond | "
            "\\(dqx\\(dq\n"
            ".TP\n\\fB\\-\\-wait\\fR\n\\&.It\\(aqs\n");
}

}  // namespace
