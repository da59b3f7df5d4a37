// Assignments that a shell can evaluate, each on a line.
#include <algorithm>
#include <cstdio>

#include "clitools/Formatters.h"
#include "clitools/Text.h"

namespace CliTools {

namespace {

bool IsOneOf(std::string_view characters, char c) {
  return characters.find(c) != std::string_view::npos;
}

constexpr std::string_view kLettersAndDigits =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";

bool IsPlain(char c) {
  return IsOneOf(kLettersAndDigits, c) || IsOneOf("_-.,:/@+%", c);
}

/// The part of a variable's name that stands for `text`.
std::string Name(std::string text) {
  std::ranges::replace_if(
      text, [](char c) { return !IsOneOf(kLettersAndDigits, c); }, '_');
  return text;
}

/// The text within $'...': \\, \', \n, \r, and \xNN for each byte of other control characters
/// and of what is not UTF-8, so that it can be undone exactly.
std::string Escape(std::string_view text) {
  std::string escaped;
  ForEachCodePoint(text, [&](const CodePoint& point) {
    if (point.value == '\\' || point.value == '\'') {
      (escaped += '\\') += point.bytes;
    } else if (point.value == '\n') {
      escaped += "\\n";
    } else if (point.value == '\r') {
      escaped += "\\r";
    } else if (point.valid && !IsControl(point.value)) {
      escaped += point.bytes;
    } else {
      for (const char byte : point.bytes) {
        char buffer[8];
        std::snprintf(buffer, sizeof buffer, "\\x%02x", static_cast<unsigned char>(byte));
        escaped += buffer;
      }
    }
  });
  return escaped;
}

/// The text as a word: as it is, in quotes, or, where it would not be one line of UTF-8 or holds a
/// quote, in $'...'.
std::string ShellWord(const std::string& text) {
  if (std::ranges::all_of(text, IsPlain)) return text;
  const std::string escaped = Escape(text);
  return (escaped == text ? "'" : "$'") + escaped + '\'';
}

void Append(std::string& text, const std::string& name, const MetaObject& value,
            const Pairs& parameters) {
  const bool isList = value.GetType() == MetaType::kList;
  if (HoldsRecords(value)) {
    const RecordSet set = RecordsOf(value, parameters);
    for (std::size_t index = 0; index < set.records.size(); ++index) {
      const std::string record = isList ? name + '_' + std::to_string(index) : name;
      for (const Column& column : set.columns) {
        const auto* const field = set.ValueOf(*set.records[index], column);
        if (field) Append(text, record + '_' + Name(column.name), *field, parameters);
      }
    }
  } else if (isList) {
    const auto& elements = ElementsOf(value);
    for (std::size_t index = 0; index < elements.size(); ++index) {
      Append(text, name + '_' + std::to_string(index), *elements[index], parameters);
    }
  } else {
    text += name + '=' + ShellWord(PlainText(&value, "")) + '\n';
  }
}

}  // namespace

std::string FormatKeyValue(const MetaObject& root, const Pairs& parameters, const Style&) {
  std::string text;
  Append(text, HoldsRecords(root) ? Name(RecordsOf(root, parameters).name) : "result", root,
         parameters);
  return text;
}

}  // namespace CliTools
