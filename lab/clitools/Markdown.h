// Writing Markdown.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace CliTools {

/// A page in Markdown, written from top to bottom. Strings are escaped, and control characters in
/// them shown as `Printable` shows them; line breaks stay.
class MarkdownPage {
 public:
  struct Definition {
    std::string term;
    std::string meaning;
    std::string remark = {};  ///< shown in parentheses after the term unless empty
  };

  /// `comment` is part of the source only.
  MarkdownPage(const std::string& title, const std::string& comment);

  void Section(const std::string& title);
  void Subsection(const std::string& title);
  void Paragraph(const std::string& text);
  void Code(const std::string& text);
  void Definitions(const std::vector<Definition>& definitions);
  /// Links to sections, given by their titles, and what these are about.
  void Contents(const std::vector<std::pair<std::string, std::string>>& sections);

  const std::string& GetText() const { return text_; }

 private:
  std::string text_;
};

}  // namespace CliTools
