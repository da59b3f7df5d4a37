#include <algorithm>
#include <cstdio>

#include "clitools/Formatters.h"
#include "clitools/Text.h"

namespace CliTools {

namespace {

/// Writes a document from its beginning to its end. Lists may hold many thousands of records, so no
/// tree of them is made first.
class JsonWriter {
 public:
  explicit JsonWriter(const Pairs& parameters) : parameters_(parameters) {}

  void Write(const MetaObject& value) {
    switch (value.GetType()) {
      case MetaType::kBool:
        text_ += static_cast<const MetaObj::MetaBool&>(value).GetValue() ? "true" : "false";
        break;
      case MetaType::kInt:
        text_ += std::to_string(static_cast<const MetaObj::MetaInt&>(value).GetValue());
        break;
      case MetaType::kString:
        WriteString(static_cast<const MetaObj::MetaString&>(value).GetValue());
        break;
      case MetaType::kStruct:
        WriteRecord(static_cast<const MetaStruct&>(value), RecordsOf(value, parameters_));
        break;
      case MetaType::kList:
        WriteList(value);
        break;
    }
  }

  const std::string& GetText() const { return text_; }

 private:
  void WriteRecord(const MetaStruct& record, const RecordSet& set) {
    WriteItems('{', '}', set.columns, [&](const Column& column) {
      const auto value = record.GetField(column.name);
      if (!value) return false;
      BeginItem();
      WriteString(column.name);
      text_ += ": ";
      Write(*value);
      return true;
    });
  }

  void WriteList(const MetaObject& list) {
    if (HoldsRecords(list)) {
      const RecordSet set = RecordsOf(list, parameters_);
      WriteItems('[', ']', set.records, [&](const MetaStruct* record) {
        BeginItem();
        WriteRecord(*record, set);
        return true;
      });
    } else {
      WriteItems('[', ']', ElementsOf(list), [&](const auto& element) {
        BeginItem();
        Write(*element);
        return true;
      });
    }
  }

  /// `writeItem` says whether there was anything to write.
  template <class Items, class WriteItem>
  void WriteItems(char open, char close, const Items& items, WriteItem&& writeItem) {
    text_ += open;
    ++depth_;
    isFirst_ = true;
    for (const auto& item : items) {
      if (writeItem(item)) isFirst_ = false;
    }
    --depth_;
    if (!isFirst_) BeginLine();
    text_ += close;
    isFirst_ = false;
  }

  void BeginItem() {
    if (!isFirst_) text_ += ',';
    BeginLine();
  }

  void BeginLine() {
    text_ += '\n';
    text_.append(2 * depth_, ' ');
  }

  void WriteString(std::string_view value) {
    text_ += '"';
    if (std::ranges::all_of(value, IsPlain)) {
      text_ += value;
    } else {
      ForEachCodePoint(value, [this](const CodePoint& point) { WriteCodePoint(point); });
    }
    text_ += '"';
  }

  /// Whether the byte is a character that stands for itself: most texts hold no other.
  static bool IsPlain(char c) { return c >= ' ' && c <= '~' && c != '"' && c != '\\'; }

  void WriteCodePoint(const CodePoint& point) {
    if (!point.valid) {
      text_ += kReplacement;
    } else if (point.value == '"' || point.value == '\\') {
      text_ += '\\';
      text_ += point.bytes;
    } else if (point.value == '\n') {
      text_ += "\\n";
    } else if (point.value == '\r') {
      text_ += "\\r";
    } else if (point.value == '\t') {
      text_ += "\\t";
    } else if (point.value < ' ') {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(point.value));
      text_ += escape;
    } else {
      text_ += point.bytes;
    }
  }

  const Pairs& parameters_;
  std::string text_;
  std::size_t depth_ = 0;
  bool isFirst_ = true;
};

}  // namespace

std::string FormatJson(const MetaObject& root, const Pairs& parameters, const Style&) {
  JsonWriter writer(parameters);
  writer.Write(root);
  return writer.GetText() + '\n';
}

}  // namespace CliTools
