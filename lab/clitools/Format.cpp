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

  bool CanShow(const MetaObject& value) const { return !showsRecordsOnly || HoldsRecords(value); }
};

constexpr Formatter kFormatters[] = {
    {"simple", "one line per field; control characters are escaped (\\n, \\x1b)", FormatSimple,
     false},
    {"table",
     "one line per record; control characters are escaped; without --formatter table, a table too "
     "wide for the terminal is printed as simple",
     FormatTable, true},
    {"json",
     "the stable format for scripts: an object per record, an array per list; bytes that are not "
     "UTF-8 become U+FFFD",
     FormatJson, false},
    {"csv",
     "a header and one line per record; cells are quoted as in RFC 4180, and if they begin or end "
     "with a blank; NUL and bytes that are not UTF-8 become U+FFFD",
     FormatCsv, true},
};

}  // namespace

Pairs Formatters() {
  Pairs descriptions;
  for (const Formatter& formatter : kFormatters) {
    descriptions.emplace_back(formatter.name, formatter.description);
  }
  return descriptions;
}

std::vector<std::string> FormattersFor(const MetaObject& rootTemplate) {
  std::vector<std::string> names;
  for (const Formatter& formatter : kFormatters) {
    if (formatter.CanShow(rootTemplate)) names.emplace_back(formatter.name);
  }
  return names;
}

void Format(const MetaObject& root, std::string_view formatter, const Pairs& parameters,
            const Style& style, const Sink& sink) {
  const auto* const known = std::ranges::find(kFormatters, formatter, &Formatter::name);
  if (!formatter.empty() && known == std::end(kFormatters)) {
    throw std::invalid_argument("no formatter " + Quote(formatter));
  }
  const auto format = formatter.empty()      ? FormatBare
                      : known->CanShow(root) ? known->format
                                             : FormatSimple;
  constexpr std::size_t kPart = 65536;  // bytes
  std::string part;
  format(root, parameters, style, [&](std::string_view text) {
    part += text;
    if (part.size() < kPart) return;
    sink(part);
    part.clear();
  });
  if (!part.empty()) sink(part);
}

std::string Format(const MetaObject& root, std::string_view formatter, const Pairs& parameters,
                   const Style& style) {
  std::string text;
  Format(root, formatter, parameters, style, [&text](std::string_view part) { text += part; });
  return text;
}

Pairs SelectFields(const MetaObject* rootTemplate, Pairs parameters, const std::string& fields) {
  const MetaStruct* const pattern = rootTemplate == nullptr ? nullptr : PatternOf(*rootTemplate);
  if (pattern == nullptr) throw UsageError("--fields: this command's result has no fields");
  const std::vector<std::string> known = ShownFields(*pattern, parameters);
  std::vector<std::string> selected;
  for (const std::string_view part : BaseLibs::Split(fields, ',')) {
    const std::string field(BaseLibs::Trim(part));
    if (field.empty()) throw UsageError("--fields: a name is empty");
    if (std::ranges::find(selected, field) != selected.end()) {
      throw UsageError("--fields: " + Quote(field) + " is named twice");
    }
    if (std::ranges::find(known, field) == known.end()) {
      const std::string suggestion = DidYouMean(Nearest(field, known));
      throw UsageError("--fields: there is no field " + Quote(field) +
                       (suggestion.empty() ? "" : "; " + suggestion) +
                       " (known here: " + Join(known, ", ") + ")");
    }
    selected.push_back(field);
  }
  const std::string key = "fields:" + pattern->GetName();
  std::erase_if(parameters, [&key](const auto& pair) { return pair.first == key; });
  parameters.emplace_back(key, Join(selected, ","));
  return parameters;
}

}  // namespace CliTools
