#include "clitools/Display.h"

#include <locale.h>
#include <wchar.h>

#include <algorithm>
#include <cstdio>

#include "baselibs/Strings.h"

namespace CliTools {

namespace {

/// Whether a terminal acts on the character instead of showing it: control characters (C0, DEL,
/// C1), and marks and separators that reorder or break the line.
bool NeedsEscape(char32_t value) {
  return value < 0x20 || (value >= 0x7F && value < 0xA0) || value == 0x061C ||
         (value >= 0x200E && value <= 0x200F) || (value >= 0x2028 && value <= 0x202E) ||
         (value >= 0x2066 && value <= 0x2069);
}

std::string Escape(char32_t value) {
  if (value == '\n') return "\\n";
  if (value == '\r') return "\\r";
  if (value == '\t') return "\\t";
  char buffer[16];
  std::snprintf(buffer, sizeof buffer, value < 0x100 ? "\\x%02x" : "\\u%04x",
                static_cast<unsigned>(value));
  return buffer;
}

/// In a locale of its own, because the process's locale may lack Unicode.
std::size_t DisplayWidth(char32_t value) {
  static const locale_t utf8 = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  if (utf8 == nullptr) return 1;
  const locale_t callers = uselocale(utf8);
  const int width = wcwidth(static_cast<wchar_t>(value));
  uselocale(callers);
  return width < 0 ? 1 : static_cast<std::size_t>(width);
}

}  // namespace

CodePoint DecodeUtf8(std::string_view text) {
  const auto byte = [text](std::size_t index) {
    return index < text.size() ? static_cast<unsigned char>(text[index]) : 0U;
  };
  const unsigned lead = byte(0);
  if (lead < 0x80) return {lead, text.substr(0, 1), true};
  if (lead < 0xC2 || lead > 0xF4) return {0xFFFD, text.substr(0, 1), false};
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  // The bounds of the second byte exclude overlong forms, surrogates and values above U+10FFFF.
  unsigned low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  unsigned high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  char32_t value = lead & (0x7FU >> length);
  for (std::size_t index = 1; index < length; ++index) {
    if (byte(index) < low || byte(index) > high) return {0xFFFD, text.substr(0, index), false};
    value = (value << 6) | (byte(index) & 0x3F);
    low = 0x80;
    high = 0xBF;
  }
  return {value, text.substr(0, length), true};
}

bool IsPrintableAscii(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return c >= ' ' && c <= '~'; });
}

std::string ValidUtf8(std::string_view text) {
  if (IsPrintableAscii(text)) return std::string(text);
  std::string valid;
  ForEachCodePoint(
      text, [&](const CodePoint& point) { valid += point.valid ? point.bytes : kReplacement; });
  return valid;
}

std::string Printable(std::string_view text) {
  if (IsPrintableAscii(text)) return std::string(text);
  std::string printable;
  ForEachCodePoint(text, [&](const CodePoint& point) {
    if (NeedsEscape(point.value)) {
      printable += Escape(point.value);
    } else {
      printable += point.valid ? point.bytes : kReplacement;
    }
  });
  return printable;
}

std::string LowerCase(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

std::string Quote(std::string_view text) {
  return '"' + Printable(text) + '"';
}

std::size_t DisplayWidth(std::string_view text) {
  if (IsPrintableAscii(text)) return text.size();
  std::size_t width = 0;
  ForEachCodePoint(text, [&](const CodePoint& point) { width += DisplayWidth(point.value); });
  return width;
}

std::string Caption(const std::string& text, const Style& style) {
  return style.bold && !text.empty() ? "\x1b[1m" + text + "\x1b[0m" : text;
}

std::string WrapItems(const std::vector<std::string>& items, std::size_t indent,
                      std::size_t width) {
  std::string lines;
  std::size_t used = 0;  // columns of the line so far; 0 before its first item
  for (const std::string& raw : items) {
    const std::string item = Printable(raw);
    const std::size_t needed = DisplayWidth(item);
    if (used != 0 && used + 1 + needed > width) {
      lines += '\n';
      used = 0;
    }
    if (used == 0) {
      lines.append(indent, ' ');
      used = indent + needed;
    } else {
      lines += ' ';
      used += 1 + needed;
    }
    lines += item;
  }
  return lines + '\n';
}

std::string Wrap(std::string_view text, std::size_t indent, std::size_t width) {
  std::string lines;
  for (const std::string_view line : BaseLibs::Split(text, '\n')) {
    const std::size_t ownIndent = std::min(line.find_first_not_of(' '), line.size());
    std::vector<std::string> words;
    for (const auto word : BaseLibs::Split(line, ' ')) {
      if (!word.empty()) words.emplace_back(word);
    }
    lines += WrapItems(words, indent + ownIndent, width);
  }
  return lines;
}

}  // namespace CliTools
