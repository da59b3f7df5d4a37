// Not with RAPIDJSON_SSE2, which leaves U+001A to U+001F unescaped.
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include "clitools/Display.h"
#include "clitools/Formatters.h"

namespace CliTools {

namespace {

/// Hands over each record as soon as it is written, so that the JSON of many is never in memory as
/// a whole.
class JsonWriter {
 public:
  JsonWriter(const Pairs& parameters, const Sink& sink) : parameters_(parameters), sink_(sink) {
    writer_.SetIndent(' ', 2);
  }

  void WriteDocument(const MetaObject& root) {
    Write(root);
    buffer_.Put('\n');
    HandOver();
  }

 private:
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
        WriteRecords(value);
        break;
      case MetaType::kList:
        WriteList(value);
        break;
    }
  }

  void WriteText(const std::string& text) {
    if (IsPrintableAscii(text)) return WriteValid(text);
    WriteValid(ValidUtf8(text));
  }

  void WriteValid(const std::string& text) {
    writer_.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
  }

  /// Writes one record, or all records of a list.
  void WriteRecords(const MetaObject& value) {
    const RecordSet set = RecordsOf(value, parameters_);
    std::vector<std::string> keys;  // escaped once for all records
    for (const Column& column : set.columns) keys.push_back(Escaped(column.name));
    for (const MetaStruct* record : set.records) {
      writer_.StartObject();
      for (std::size_t index = 0; index < keys.size(); ++index) {
        const auto* const field = ValueOf(*record, set.columns[index]);
        if (field == nullptr) continue;
        writer_.RawValue(keys[index].data(), keys[index].size(), rapidjson::kStringType);
        Write(*field);
      }
      writer_.EndObject();
      HandOver();
    }
  }

  static std::string Escaped(const std::string& text) {
    rapidjson::StringBuffer buffer;
    const std::string valid = ValidUtf8(text);
    rapidjson::Writer<rapidjson::StringBuffer>(buffer).String(
        valid.data(), static_cast<rapidjson::SizeType>(valid.size()));
    return buffer.GetString();
  }

  void WriteList(const MetaObject& list) {
    writer_.StartArray();
    if (HoldsRecords(list)) {
      WriteRecords(list);
    } else {
      for (const auto& element : ElementsOf(list)) Write(*element);
    }
    writer_.EndArray();
  }

  void HandOver() {
    sink_({buffer_.GetString(), buffer_.GetSize()});
    buffer_.Clear();
  }

  const Pairs& parameters_;
  const Sink& sink_;
  rapidjson::StringBuffer buffer_;
  rapidjson::PrettyWriter<rapidjson::StringBuffer> writer_{buffer_};
};

}  // namespace

void FormatJson(const MetaObject& root, const Pairs& parameters, const Style&, const Sink& sink) {
  JsonWriter(parameters, sink).WriteDocument(root);
}

}  // namespace CliTools
