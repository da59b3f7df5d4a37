#include "clitools/Words.h"

#include "clitools/UsageError.h"

namespace CliTools {

namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r';
}

/// Reads a line once, from its beginning to its end.
class Scanner {
 public:
  explicit Scanner(std::string_view line) : line_(line) {
    while (at_ < line_.size()) Take(line_[at_++]);
  }

  std::vector<std::string> words;
  bool inWord = false;      ///< the last word goes on where the line ends
  bool afterSlash = false;  ///< the line ends behind a backslash
  char quote = '\0';        ///< that has no end; else none
  std::size_t quoteAt = 0;  ///< its column, from 1

 private:
  void Take(char c) {
    if (afterSlash) {
      afterSlash = false;
      // Between double quotes it escapes only what would have a meaning there.
      if (quote == '"' && std::string_view("\"\\$`").find(c) == std::string_view::npos)
        Append('\\');
      Append(c);
    } else if (c == '\\' && quote != '\'') {
      BeginWord();
      afterSlash = true;
    } else if (quote != '\0') {
      if (c == quote) {
        quote = '\0';
      } else {
        Append(c);
      }
    } else if (c == '\'' || c == '"') {
      BeginWord();
      quote = c;
      quoteAt = at_;
    } else if (IsBlank(c)) {
      inWord = false;
    } else if (c == '#' && !inWord) {
      at_ = line_.size();
    } else {
      Append(c);
    }
  }

  void BeginWord() {
    if (!inWord) words.emplace_back();
    inWord = true;
  }

  void Append(char c) {
    BeginWord();
    words.back() += c;
  }

  std::string_view line_;
  std::size_t at_ = 0;
};

}  // namespace

std::vector<std::string> SplitWords(std::string_view line) {
  Scanner scanner(line);
  if (scanner.quote != '\0') {
    throw UsageError(std::string("the quote ") + scanner.quote + " in column " +
                     std::to_string(scanner.quoteAt) + " has no end");
  }
  if (scanner.afterSlash) throw UsageError("nothing follows the backslash at the end of the line");
  return std::move(scanner.words);
}

bool GoesOn(std::string_view line) {
  return Scanner(line).afterSlash;
}

std::vector<std::string> SplitTyped(std::string_view line) {
  Scanner scanner(line);
  if (!scanner.inWord) scanner.words.emplace_back();
  return std::move(scanner.words);
}

}  // namespace CliTools
