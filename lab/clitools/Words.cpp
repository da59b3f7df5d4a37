#include "clitools/Words.h"

#include "clitools/UsageError.h"

namespace CliTools {

void WordScanner::Scan(std::string_view line) {
  if (afterBackslash_) --column_;
  afterBackslash_ = false;
  for (const char c : line) {
    if (c == '#' && !inWord_ && quote_ == '\0' && !afterBackslash_) return;
    ++column_;
    Take(c);
  }
}

void WordScanner::Take(char c) {
  if (afterBackslash_) {
    afterBackslash_ = false;
    // Between double quotes a backslash is an escape only before these characters.
    if (quote_ == '"' && std::string_view("\"\\$`").find(c) == std::string_view::npos) Append('\\');
    Append(c);
  } else if (c == '\\' && quote_ != '\'') {
    afterBackslash_ = true;
  } else if (quote_ != '\0') {
    if (c == quote_) {
      quote_ = '\0';
    } else {
      Append(c);
    }
  } else if (c == '\'' || c == '"') {
    BeginWord();
    quote_ = c;
    quoteColumn_ = column_;
  } else if (c == ' ' || c == '\t') {
    inWord_ = false;
  } else {
    Append(c);
  }
}

void WordScanner::BeginWord() {
  if (!inWord_) words_.emplace_back();
  inWord_ = true;
}

void WordScanner::Append(char c) {
  BeginWord();
  words_.back() += c;
}

std::vector<std::string> WordScanner::TakeWords() {
  if (quote_ != '\0') {
    throw UsageError(std::string("the quote ") + quote_ + " in column " +
                     std::to_string(quoteColumn_) + " has no end");
  }
  if (afterBackslash_) throw UsageError("nothing follows the backslash at the end of the line");
  return std::move(words_);
}

std::vector<std::string> WordScanner::TakeTypedWords() {
  if (!inWord_) words_.emplace_back();
  return std::move(words_);
}

std::vector<std::string> SplitWords(std::string_view line) {
  WordScanner scanner;
  scanner.Scan(line);
  return scanner.TakeWords();
}

}  // namespace CliTools
