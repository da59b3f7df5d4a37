#include "clitools/Format.h"

#include <algorithm>
#include <stdexcept>

#include "baselibs/Strings.h"
#include "clitools/Display.h"
#include "clitools/Formatters.h"
#include "clitools/Suggest.h"
#include "clitools/UsageError.h"

namespace CliTools {

using BaseLibs::Join;

namespace {

struct Formatter {
  std::string_view name;
  const char* description;
  void (*format)(const MetaObject&, const Pairs&, const Style&, const Sink&);
  bool showsRecordsOnly;
};

/// Hands over in one what `kFormat` returns.
template <auto kFormat>
void Whole(const MetaObject& root, const Pairs& parameters, const Style& style, const Sink& sink) {
  sink(kFormat(root, parameters, style));
}

constexpr Formatter kFormatters[] = {
    {"simple", "a line for each field of each record", Whole<FormatSimple>, false},
    {"table",
     "a line for each record; where it does not fit the terminal, as simple unless chosen by name",
     Whole<FormatTable>, true},
    {"json",
     "a record is an object, a list an array; numbers and booleans are such; the stable form for "
     "scripts",
     FormatJson, false},
    {"csv",
     "a heading and a line for each record; a cell with commas, quotes, line ends, or blanks at an "
     "end is in double quotes",
     Whole<FormatCsv>, true},
};

bool CanShow(const Formatter& formatter, const MetaObject& value) {
  return !formatter.showsRecordsOnly || HoldsRecords(value);
}

/// Empty if the key is not set.
std::string_view Lookup(const Pairs& parameters, const std::string& key) {
  const auto found = std::ranges::find(parameters, key, &Pairs::value_type::first);
  return found == parameters.end() ? std::string_view() : found->second;
}

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// A text if the record does not say what the field is.
MetaType TypeOf(const MetaStruct& record, const std::string& field) {
  const auto value = record.GetField(field);
  return value ? value->GetType() : MetaType::kString;
}

/// The record that shows how all of them look; null if there is none.
const MetaStruct* PatternOf(const MetaObject& value) {
  if (value.GetType() == MetaType::kStruct) return static_cast<const MetaStruct*>(&value);
  const auto& list = static_cast<const MetaList&>(value);
  if (list.GetElementTemplate()) return list.GetElementTemplate().get();
  if (list.GetElements().empty()) return nullptr;
  return static_cast<const MetaStruct*>(list.GetElements().front().get());
}

}  // namespace

std::vector<std::string> FormatterNames() {
  std::vector<std::string> names;
  for (const Formatter& formatter : kFormatters) names.emplace_back(formatter.name);
  return names;
}

Descriptions FormatterDescriptions() {
  Descriptions descriptions;
  for (const Formatter& formatter : kFormatters) {
    descriptions.emplace_back(formatter.name, formatter.description);
  }
  return descriptions;
}

std::vector<std::string> FormattersFor(const MetaObject& rootTemplate) {
  std::vector<std::string> names;
  for (const Formatter& formatter : kFormatters) {
    if (CanShow(formatter, rootTemplate)) names.emplace_back(formatter.name);
  }
  return names;
}

bool CanShow(std::string_view formatter, const MetaObject& rootTemplate) {
  const auto known = std::ranges::find(kFormatters, formatter, &Formatter::name);
  return known != std::end(kFormatters) && CanShow(*known, rootTemplate);
}

void Format(const MetaObject& root, std::string_view formatter, const Pairs& parameters,
            const Style& style, const Sink& sink) {
  if (formatter.empty()) return Whole<FormatBare>(root, parameters, style, sink);
  const auto known = std::ranges::find(kFormatters, formatter, &Formatter::name);
  if (known == std::end(kFormatters)) {
    throw std::invalid_argument("no formatter " + Quote(formatter));
  }
  if (!CanShow(*known, root)) return Whole<FormatSimple>(root, parameters, style, sink);
  known->format(root, parameters, style, sink);
}

std::string Format(const MetaObject& root, std::string_view formatter, const Pairs& parameters,
                   const Style& style) {
  std::string text;
  Format(root, formatter, parameters, style, [&text](std::string_view part) { text += part; });
  return text;
}

std::vector<std::string> ShownFields(const MetaStruct& record, const Pairs& parameters) {
  std::vector<std::string> names;
  std::string_view listed = Lookup(parameters, "fields:" + record.GetName());
  while (!listed.empty()) {
    const std::string_view name = listed.substr(0, listed.find(','));
    if (!Trim(name).empty()) names.emplace_back(Trim(name));
    listed.remove_prefix(std::min(listed.size(), name.size() + 1));
  }
  if (names.empty()) {
    names.assign(record.GetFieldNames().begin(), record.GetFieldNames().end());
  }
  return names;
}

Pairs SelectFields(const MetaObject* rootTemplate, Pairs parameters,
                   const std::vector<std::string>& fields) {
  const bool holdsRecords = rootTemplate != nullptr && HoldsRecords(*rootTemplate);
  const MetaStruct* const pattern = holdsRecords ? PatternOf(*rootTemplate) : nullptr;
  if (pattern == nullptr) throw UsageError("--fields: this command's result has no fields");
  const std::vector<std::string> known = ShownFields(*pattern, parameters);
  for (auto field = fields.begin(); field != fields.end(); ++field) {
    if (std::find(fields.begin(), field, *field) != field) {
      throw UsageError("--fields: " + Quote(*field) + " is named twice");
    }
    if (std::ranges::find(known, *field) != known.end()) continue;
    const std::string suggestion = DidYouMean(Nearest(*field, known));
    throw UsageError("--fields: there is no field " + Quote(*field) +
                     (suggestion.empty() ? "" : "; " + suggestion) +
                     " (known here: " + Join(known, ", ") + ")");
  }
  const std::string key = "fields:" + pattern->GetName();
  std::erase_if(parameters, [&key](const auto& pair) { return pair.first == key; });
  parameters.emplace_back(key, Join(fields, ","));
  return parameters;
}

bool HoldsRecords(const MetaObject& value) {
  if (value.GetType() == MetaType::kStruct) return true;
  return value.GetType() == MetaType::kList &&
         static_cast<const MetaList&>(value).GetElementType() == MetaType::kStruct;
}

const std::vector<std::shared_ptr<MetaObject>>& ElementsOf(const MetaObject& list) {
  return static_cast<const MetaList&>(list).GetElements();
}

const MetaObject* ValueOf(const MetaStruct& record, const Column& column) {
  return record.GetField(column.name).get();
}

RecordSet RecordsOf(const MetaObject& value, const Pairs& parameters) {
  RecordSet set;
  if (const MetaStruct* const pattern = PatternOf(value)) {
    set.name = pattern->GetName();
    set.caption = Lookup(parameters, "header:" + set.name);
    for (std::string& field : ShownFields(*pattern, parameters)) {
      std::string unit(Lookup(parameters, "units:" + set.name + "." + field));
      const MetaType type = TypeOf(*pattern, field);
      set.columns.push_back({std::move(field), std::move(unit), type});
    }
  }
  if (value.GetType() == MetaType::kStruct) {
    set.records.push_back(static_cast<const MetaStruct*>(&value));
    return set;
  }
  for (const auto& element : ElementsOf(value)) {
    set.records.push_back(static_cast<const MetaStruct*>(element.get()));
  }
  return set;
}

std::string PlainText(const MetaObject* value, std::string_view separator) {
  if (value == nullptr) return {};
  switch (value->GetType()) {
    case MetaType::kBool:
      return static_cast<const MetaObj::MetaBool*>(value)->GetValue() ? "true" : "false";
    case MetaType::kInt:
      return std::to_string(static_cast<const MetaObj::MetaInt*>(value)->GetValue());
    case MetaType::kString:
      return static_cast<const MetaObj::MetaString*>(value)->GetValue();
    default:
      break;
  }
  std::vector<std::string> parts;
  if (value->GetType() == MetaType::kList) {
    for (const auto& element : ElementsOf(*value)) {
      parts.push_back(PlainText(element.get(), separator));
    }
  } else {
    const auto& record = static_cast<const MetaStruct&>(*value);
    for (std::size_t field = 0; field < record.GetValues().size(); ++field) {
      parts.push_back(record.GetFieldNames()[field] + ": " +
                      PlainText(record.GetValues()[field].get(), separator));
    }
  }
  return Join(parts, separator);
}

}  // namespace CliTools
