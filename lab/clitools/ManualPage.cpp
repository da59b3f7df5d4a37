#include "clitools/ManualPage.h"

#include <algorithm>
#include <cctype>
#include <string_view>

#include "baselibs/Text.h"
#include "clitools/Text.h"

namespace CliTools {

using BaseLibs::Join;

namespace {

std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(text.size(), line.size() + 1));
    lines.emplace_back(line);
  }
  return lines;
}

/// What `escape` makes of each line of a text, without the blanks that begin it. Empty lines, which
/// would end a paragraph, are left out.
template <class Escape>
std::vector<std::string> TextLines(const std::string& text, Escape&& escape) {
  std::vector<std::string> lines;
  for (const std::string& line : Lines(text)) {
    const std::size_t begin = line.find_first_not_of(' ');
    if (begin != std::string::npos) lines.push_back(escape(line.substr(begin)));
  }
  return lines;
}

/// The text with a backslash before each of the characters.
std::string Backslashed(std::string_view text, std::string_view characters) {
  std::string escaped;
  for (const char c : text) {
    if (characters.find(c) != std::string_view::npos) escaped += '\\';
    escaped += c;
  }
  return escaped;
}

std::string Upper(std::string text) {
  std::ranges::transform(text, text.begin(), [](unsigned char c) { return std::toupper(c); });
  return text;
}

std::string Markdown(const std::string& text) {
  return Backslashed(Printable(text), "\\`*_[]<>&|#~");
}

/// A line that begins a paragraph: no number or hyphen may turn it into an item of a list.
std::string MarkdownLine(const std::string& line) {
  const std::size_t digits = std::min(line.find_first_not_of("0123456789"), line.size());
  const std::string_view marks = digits == 0 ? "-+=" : ".)";
  const bool isItem = marks.find(line[digits]) != std::string_view::npos;
  if (!isItem) return Markdown(line);
  return line.substr(0, digits) + '\\' + line[digits] + Markdown(line.substr(digits + 1));
}

std::string MarkdownCell(const std::string& text) {
  return Join(TextLines(text, Markdown), "<br>");
}

/// Code in a table: only what ends the cell needs to be escaped there.
std::string MarkdownCode(const std::string& text) {
  return '`' + Backslashed(Printable(text), "|") + '`';
}

std::string Roff(const std::string& text) {
  std::string escaped;
  for (const char c : Printable(text)) {
    switch (c) {
      case '\\':
        escaped += "\\e";
        break;
      case '"':
        escaped += "\\(dq";
        break;
      case '\'':
        escaped += "\\(aq";
        break;
      case '`':
        escaped += "\\(ga";
        break;
      case '^':
        escaped += "\\(ha";
        break;
      case '~':
        escaped += "\\(ti";
        break;
      case '-':
        escaped += "\\-";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

/// A line of its own: one that begins with a dot would be taken for a request.
std::string RoffLine(const std::string& line) {
  return (line.starts_with('.') ? "\\&" : "") + Roff(line) + '\n';
}

std::string RoffBold(const std::string& text) {
  return "\\fB" + Roff(text) + "\\fR";
}

}  // namespace

MarkdownPage::MarkdownPage(const std::string& title, const std::string& remark) {
  text_ = "<!-- " + remark + " -->\n\n# " + Markdown(title) + '\n';
}

void MarkdownPage::Section(const std::string& title) {
  text_ += "\n## " + Markdown(title) + '\n';
}

void MarkdownPage::Subsection(const std::string& title) {
  text_ += "\n### " + Markdown(title) + '\n';
}

void MarkdownPage::Paragraph(const std::string& text) {
  if (text.empty()) return;
  text_ += '\n' + Join(TextLines(text, MarkdownLine), "<br>\n") + '\n';
}

void MarkdownPage::Code(const std::string& text) {
  text_ += "\n```\n";
  for (const std::string& line : Lines(text)) text_ += Printable(line) + '\n';
  text_ += "```\n";
}

void MarkdownPage::Options(const std::vector<Option>& options) {
  text_ += "\n| Option | Value | Required | Description |\n|---|---|---|---|\n";
  for (const Option& option : options) {
    std::vector<std::string> names = option.names;
    std::ranges::transform(names, names.begin(), MarkdownCode);
    text_ += "| " + Join(names, ", ") + " | " + MarkdownCell(option.value) + " | " +
             (option.required ? "yes" : "no") + " | " + MarkdownCell(option.description) + " |\n";
  }
}

void MarkdownPage::Definitions(const Pairs& pairs) {
  text_ += "\n| Name | Meaning |\n|---|---|\n";
  for (const auto& [name, meaning] : pairs) {
    text_ += "| " + MarkdownCode(name) + " | " + MarkdownCell(meaning) + " |\n";
  }
}

void MarkdownPage::Contents(const Pairs& pairs) {
  text_ += "\n| Command | Description |\n|---|---|\n";
  for (const auto& [title, meaning] : pairs) {
    std::string anchor = Printable(title);
    std::ranges::replace(anchor, ' ', '-');
    text_ += "| [" + Markdown(title) + "](#" + anchor + ") | " + MarkdownCell(meaning) + " |\n";
  }
}

RoffPage::RoffPage(const std::string& name, const std::string& program,
                   const std::string& purpose) {
  const std::size_t dot = name.find('.');
  const std::string topic = name.substr(0, dot);
  text_ = ".TH " + Upper(topic) + ' ' + name.substr(dot + 1) + " \"\" \"" + Roff(program) + "\"\n";
  // Left as it is: commands and names must not be broken or stretched.
  text_ += ".nh\n.ad l\n";
  Section("Name");
  text_ += Roff(topic) + " \\- " + Roff(purpose) + '\n';
}

void RoffPage::Section(const std::string& title) {
  text_ += ".SH \"" + Roff(Upper(title)) + "\"\n";
}

void RoffPage::Subsection(const std::string& title) {
  text_ += ".SS \"" + Roff(title) + "\"\n";
}

void RoffPage::Paragraph(const std::string& text) {
  if (text.empty()) return;
  text_ += ".PP\n";
  Text(text);
}

void RoffPage::Code(const std::string& text) {
  text_ += ".PP\n.RS 4\n.nf\n";
  for (const std::string& line : Lines(text)) text_ += RoffLine(line);
  text_ += ".fi\n.RE\n";
}

void RoffPage::Options(const std::vector<Option>& options) {
  for (const Option& option : options) {
    std::vector<std::string> names = option.names;
    std::ranges::transform(names, names.begin(), RoffBold);
    text_ += ".TP\n" + Join(names, ", ");
    if (!option.value.empty()) text_ += " (" + Roff(option.value) + ')';
    text_ += option.required ? ", required\n" : "\n";
    Text(option.description);
  }
}

void RoffPage::Definitions(const Pairs& pairs) {
  for (const auto& [name, meaning] : pairs) {
    text_ += ".TP\n" + RoffBold(name) + '\n';
    Text(meaning);
  }
}

void RoffPage::Text(const std::string& text) {
  text_ += Join(TextLines(text, RoffLine), ".br\n");
}

}  // namespace CliTools
