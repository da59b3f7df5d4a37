#include "clitools/Markdown.h"

#include <algorithm>
#include <string_view>

#include "baselibs/Strings.h"
#include "clitools/Display.h"

namespace CliTools {

namespace {

std::string Escape(std::string_view text) {
  std::string escaped;
  for (const char c : Printable(text)) {
    if (std::string_view("\\`*_[]<>&|#~").find(c) != std::string_view::npos) escaped += '\\';
    escaped += c;
  }
  return escaped;
}

/// Also escapes a number or hyphen that would begin an item of a list.
std::string EscapeLine(std::string_view line) {
  const std::size_t digits = std::min(line.find_first_not_of("0123456789"), line.size());
  const std::string_view marks = digits == 0 ? "-+=" : ".)";
  const bool isItem = marks.find(line.substr(digits, 1)) != std::string_view::npos;
  if (!isItem || digits == line.size()) return Escape(line);
  return std::string(line.substr(0, digits)) + '\\' + Escape(line.substr(digits));
}

/// Returns the lines of a paragraph, with `indent` before all but the first. Drops their own
/// indentation, and empty lines, which would end the paragraph.
std::string EscapeLines(std::string_view text, std::string_view indent) {
  std::vector<std::string> lines;
  for (const std::string_view line : BaseLibs::Split(text, '\n')) {
    const std::string_view trimmed = BaseLibs::Trim(line);
    if (!trimmed.empty()) lines.push_back(EscapeLine(trimmed));
  }
  return BaseLibs::Join(lines, "\\\n" + std::string(indent));
}

}  // namespace

MarkdownPage::MarkdownPage(const std::string& title, const std::string& comment) {
  text_ = "<!-- " + comment + " -->\n\n# " + Escape(title) + '\n';
}

void MarkdownPage::Section(const std::string& title) {
  text_ += "\n## " + Escape(title) + '\n';
}

void MarkdownPage::Subsection(const std::string& title) {
  text_ += "\n### " + Escape(title) + '\n';
}

void MarkdownPage::Paragraph(const std::string& text) {
  if (!text.empty()) text_ += '\n' + EscapeLines(text, "") + '\n';
}

void MarkdownPage::Code(const std::string& text) {
  text_ += "\n```\n" + BaseLibs::Join(BaseLibs::Split(text, '\n'), "\n", Printable) + "\n```\n";
}

void MarkdownPage::Definitions(const std::vector<Definition>& definitions) {
  for (const auto& [term, meaning, remark] : definitions) {
    text_ += "\n- **" + Escape(term) + "**" + (remark.empty() ? "" : " (" + Escape(remark) + ')');
    text_ += (meaning.empty() ? "" : "\\\n  " + EscapeLines(meaning, "  ")) + '\n';
  }
}

void MarkdownPage::Contents(const std::vector<std::pair<std::string, std::string>>& sections) {
  text_ += '\n';
  for (const auto& [title, meaning] : sections) {
    std::string anchor = Printable(title);
    std::ranges::replace(anchor, ' ', '-');
    text_ += "- [" + Escape(title) + "](#" + anchor + "): " + EscapeLines(meaning, "  ") + '\n';
  }
}

}  // namespace CliTools
