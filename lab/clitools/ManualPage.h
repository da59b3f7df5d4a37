// The languages that the manual is written in.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace CliTools {

/// A page of the manual while it is written. Texts come as they are; the page sees to it that they
/// are read so. Line breaks of a text stay.
class ManualPage {
 public:
  /// What a command takes.
  struct Option {
    std::vector<std::string> names;  ///< "-u", "--uuid"
    std::string value;               ///< in words; empty for a flag
    bool required;
    std::string description;
  };
  using Pairs = std::vector<std::pair<std::string, std::string>>;

  virtual ~ManualPage() = default;
  virtual void Section(const std::string& title) = 0;
  virtual void Subsection(const std::string& title) = 0;
  virtual void Paragraph(const std::string& text) = 0;
  /// Something that is typed, with its line breaks.
  virtual void Code(const std::string& text) = 0;
  virtual void Options(const std::vector<Option>& options) = 0;
  /// Names and what they are.
  virtual void Definitions(const Pairs& pairs) = 0;

  const std::string& GetText() const { return text_; }

 protected:
  std::string text_;
};

class MarkdownPage final : public ManualPage {
 public:
  /// `remark` is for those who see the text of the page, and not shown.
  MarkdownPage(const std::string& title, const std::string& remark);
  void Section(const std::string& title) override;
  void Subsection(const std::string& title) override;
  void Paragraph(const std::string& text) override;
  void Code(const std::string& text) override;
  void Options(const std::vector<Option>& options) override;
  void Definitions(const Pairs& pairs) override;
  /// Titles of sections further down, as links, and what they are about.
  void Contents(const Pairs& pairs);
};

/// A page for man.
class RoffPage final : public ManualPage {
 public:
  /// `name` as in "autocli.1"; `program` is what the page comes with, and its version.
  RoffPage(const std::string& name, const std::string& program, const std::string& purpose);
  void Section(const std::string& title) override;
  void Subsection(const std::string& title) override;
  void Paragraph(const std::string& text) override;
  void Code(const std::string& text) override;
  void Options(const std::vector<Option>& options) override;
  void Definitions(const Pairs& pairs) override;

 private:
  void Text(const std::string& text);
};

}  // namespace CliTools
