// Splitting command lines into words.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace CliTools {

/// Splits a command line into words as a shell does, without expanding anything: blanks separate
/// words; '...', "..." and a backslash keep characters; "#" at the start of a word begins a
/// comment.
class WordScanner {
 public:
  /// Scans a line: the first one, or one that continues the line before (`IsContinued`).
  void Scan(std::string_view line);

  /// Whether the last line ends in a backslash that joins it with the next one.
  bool IsContinued() const { return afterBackslash_; }

  /// Returns the words, once. Throws `UsageError` for a quote without an end and for a backslash
  /// that nothing follows.
  std::vector<std::string> TakeWords();

  /// Returns the words of an unfinished line, once. The last one is at the cursor: empty after a
  /// blank, and its quote may still be open.
  std::vector<std::string> TakeTypedWords();

 private:
  void Take(char c);
  void BeginWord();
  void Append(char c);

  std::vector<std::string> words_;
  bool inWord_ = false;
  bool afterBackslash_ = false;
  char quote_ = '\0';            ///< the open quote
  std::size_t column_ = 0;       ///< of the last byte, counted from 1 across joined lines
  std::size_t quoteColumn_ = 0;  ///< of the open quote
};

/// The words of one line. Throws `UsageError` as `WordScanner::TakeWords` does.
std::vector<std::string> SplitWords(std::string_view line);

}  // namespace CliTools
