// Without RAPIDJSON_SSE2: its search of many characters at once takes U+001A to U+001F for plain.
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include "clitools/Formatters.h"
#include "clitools/Text.h"

namespace CliTools {

namespace {

/// Writes a document from its beginning to its end. Lists may hold many thousands of records, so no
/// tree of them is made first.
class JsonWriter {
 public:
  explicit JsonWriter(const Pairs& parameters) : parameters_(parameters) {
    writer_.SetIndent(' ', 2);
  }

  void Write(const MetaObject& value) {
    switch (value.GetType()) {
      case MetaType::kBool:
        writer_.Bool(static_cast<const MetaObj::MetaBool&>(value).GetValue());
        break;
      case MetaType::kInt:
        writer_.Int64(static_cast<const MetaObj::MetaInt&>(value).GetValue());
        break;
      case MetaType::kString:
        WriteText(static_cast<const MetaObj::MetaString&>(value).GetValue());
        break;
      case MetaType::kStruct:
        WriteRecord(static_cast<const MetaStruct&>(value), RecordsOf(value, parameters_));
        break;
      case MetaType::kList:
        WriteList(value);
        break;
    }
  }

  std::string GetText() const { return {buffer_.GetString(), buffer_.GetSize()}; }

 private:
  void WriteText(const std::string& text) {
    if (IsPlain(text)) return WriteValid(text);
    WriteValid(ValidUtf8(text));
  }

  void WriteValid(const std::string& text) {
    writer_.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
  }

  void WriteRecord(const MetaStruct& record, const RecordSet& set) {
    writer_.StartObject();
    for (const Column& column : set.columns) {
      const auto* const value = set.ValueOf(record, column);
      if (!value) continue;
      WriteText(column.name);
      Write(*value);
    }
    writer_.EndObject();
  }

  void WriteList(const MetaObject& list) {
    writer_.StartArray();
    if (HoldsRecords(list)) {
      const RecordSet set = RecordsOf(list, parameters_);
      for (const MetaStruct* record : set.records) WriteRecord(*record, set);
    } else {
      for (const auto& element : ElementsOf(list)) Write(*element);
    }
    writer_.EndArray();
  }

  const Pairs& parameters_;
  rapidjson::StringBuffer buffer_;
  rapidjson::PrettyWriter<rapidjson::StringBuffer> writer_{buffer_};
};

}  // namespace

std::string FormatJson(const MetaObject& root, const Pairs& parameters, const Style&) {
  JsonWriter writer(parameters);
  writer.Write(root);
  return writer.GetText() + '\n';
}

}  // namespace CliTools
