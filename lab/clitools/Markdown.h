// Writing Markdown.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace CliTools {

/// A page in Markdown, written from top to bottom. Escapes what Markdown would act on, and control
/// characters as `Printable` does; keeps line breaks.
class MarkdownPage {
 public:
  struct Definition {
    std::string term;
    std::string meaning;
    std::string remark = {};  ///< shown in parentheses after the term unless empty
  };

  /// `comment` is not rendered.
  MarkdownPage(const std::string& title, const std::string& comment);

  void Section(const std::string& title);
  void Subsection(const std::string& title);
  void Paragraph(const std::string& text);
  void Code(const std::string& text);
  void Definitions(const std::vector<Definition>& definitions);
  /// Writes links to sections: their titles and descriptions.
  void Contents(const std::vector<std::pair<std::string, std::string>>& sections);

  const std::string& GetText() const { return text_; }

 private:
  std::string text_;
};

}  // namespace CliTools
