// Strings as terminals and documents show them. A string may hold any bytes; what is shown is
// UTF-8.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace CliTools {

/// U+FFFD, which replaces bytes that are not UTF-8.
inline constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

/// One code point, or a truncated one, or a byte that begins none.
struct CodePoint {
  char32_t value;          ///< U+FFFD if not valid
  std::string_view bytes;  ///< refers to the decoded string
  bool valid;
};

/// Decodes the first code point of `text`, which must not be empty.
CodePoint DecodeUtf8(std::string_view text);

/// Calls `visit` with each code point of `text` in turn.
template <class Visit>
void ForEachCodePoint(std::string_view text, Visit&& visit) {
  while (!text.empty()) {
    const CodePoint point = DecodeUtf8(text);
    visit(point);
    text.remove_prefix(point.bytes.size());
  }
}

/// Whether every byte is a printable ASCII character. Most strings are, so callers have a fast path
/// for them.
bool IsPrintableAscii(std::string_view text);

/// Returns `text` with U+FFFD for bytes that are not UTF-8.
std::string ValidUtf8(std::string_view text);

/// Returns `text` as one line of UTF-8 that is safe on a terminal: control characters, line
/// separators and direction marks are escaped (\n, \x1b, \u202e).
std::string Printable(std::string_view text);

/// Returns `text` with its ASCII letters in lower case.
std::string LowerCase(std::string_view text);

/// Returns `Printable(text)` in double quotes.
std::string Quote(std::string_view text);

/// Returns the number of terminal columns that printable UTF-8 takes.
std::size_t DisplayWidth(std::string_view text);

/// Takes the parts of a document, one after the other.
using Sink = std::function<void(std::string_view)>;

/// The layout of documents.
struct Style {
  std::size_t width = 0;  ///< columns of the page; 0: no limit
  bool bold = false;      ///< whether captions are printed bold
  bool header = true;     ///< whether tables and CSV have a header
};

/// Returns `text`, in bold if the style asks for it.
std::string Caption(const std::string& text, const Style& style);

/// Returns the items, each as `Printable` returns it, in lines of at most `width` columns that
/// begin with `indent` blanks and end in a newline. An item that does not fit has a line to itself.
std::string WrapItems(const std::vector<std::string>& items, std::size_t indent, std::size_t width);

/// Returns the words of `text` wrapped as `WrapItems` wraps items. Line breaks of the text stay,
/// and so does the indentation of its lines, which also applies to their continuation.
std::string Wrap(std::string_view text, std::size_t indent, std::size_t width);

}  // namespace CliTools
