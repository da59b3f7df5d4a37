// Texts on their way to people and to documents. A text may hold any bytes; what is shown of it may
// not.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace CliTools {

/// Stands for bytes that are not UTF-8: U+FFFD.
inline constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

/// One code point of a text, or the longest run of bytes that could have begun one.
struct CodePoint {
  char32_t value;          ///< U+FFFD if not valid
  std::string_view bytes;  ///< as they stand in the text
  bool valid;
};

/// The first code point of `text`, which is not empty.
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

/// Whether a terminal may act on the character instead of showing it (C0, DEL, C1).
constexpr bool IsControl(char32_t value) {
  return value < 0x20 || (value >= 0x7F && value < 0xA0);
}

/// Whether every byte is a character of its own, of one column: most texts, so they take short
/// ways.
bool IsPrintableAscii(std::string_view text);

/// `text` with U+FFFD for all that is not UTF-8.
std::string ValidUtf8(std::string_view text);

/// `text` for a person's eyes, on one line: what could move the cursor, end the line or turn the
/// writing direction is escaped (\n, \x1b, \u202e); U+FFFD stands for all that is not UTF-8.
std::string Printable(std::string_view text);

/// `text` with small letters for the capital ones of ASCII.
std::string LowerCase(std::string_view text);

/// `Printable(text)` in double quotes.
std::string Quote(std::string_view text);

/// The columns that valid UTF-8 without control characters takes on a terminal.
std::size_t DisplayWidth(std::string_view text);

/// Takes the parts of a document, one after the other.
using Sink = std::function<void(std::string_view)>;

/// How a text for people is laid out on what shows it.
struct Style {
  std::size_t width = 0;  ///< columns of the page; 0: as many as it takes
  bool bold = false;      ///< whether captions can be made to stand out
  bool header = true;     ///< whether a table says what its columns are
};

/// The text of a caption.
std::string Caption(const std::string& text, const Style& style);

/// Lines of at most `width` columns, each begun by `indent` blanks and ended by a newline. Items
/// are shown as `Printable` returns them. An item is never broken, even if it is wider than the
/// line.
std::string WrapItems(const std::vector<std::string>& items, std::size_t indent, std::size_t width);

/// Likewise for a text, broken at its blanks. Its own line breaks stay, and so do the blanks that
/// begin its lines; they also begin the lines that follow from wrapping.
std::string Wrap(std::string_view text, std::size_t indent, std::size_t width);

}  // namespace CliTools
