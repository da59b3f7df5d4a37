// The formatters for people: the bare value, simple, table.
#include <algorithm>

#include "clitools/Formatters.h"
#include "clitools/Text.h"

namespace CliTools {

namespace {

constexpr std::string_view kColumnGap = "  ";

std::string Shown(const MetaObject* value) {
  return Printable(PlainText(value, ", "));
}

std::string ShownWithUnit(const MetaObject* value, const Column& column) {
  const std::string text = Shown(value);
  return text.empty() || column.unit.empty() ? text : text + ' ' + column.unit;
}

/// A caption "%Field%" is the value of that field.
std::string CaptionOf(const MetaStruct& record, const std::string& caption) {
  if (caption.size() > 2 && caption.starts_with('%') && caption.ends_with('%')) {
    const auto value = record.GetField(caption.substr(1, caption.size() - 2));
    if (value) return Shown(value.get());
  }
  return caption;
}

std::string Lines(const MetaStruct& record, const RecordSet& set) {
  std::string lines;
  if (!set.caption.empty()) lines += CaptionOf(record, set.caption) + '\n';
  for (const Column& column : set.columns) {
    const auto value = record.GetField(column.name);
    if (value) lines += "   " + column.name + ": " + ShownWithUnit(value.get(), column) + '\n';
  }
  return lines;
}

using Row = std::vector<std::string>;

std::string TableLine(const Row& cells, const std::vector<std::size_t>& widths,
                      const std::vector<Column>& columns) {
  std::string line;
  for (std::size_t index = 0; index < cells.size(); ++index) {
    const std::size_t padding = widths[index] - DisplayWidth(cells[index]);
    if (index > 0) line += kColumnGap;
    if (columns[index].isNumber) line.append(padding, ' ');
    line += cells[index];
    if (!columns[index].isNumber) line.append(padding, ' ');
  }
  line.resize(line.find_last_not_of(' ') + 1);
  return line + '\n';
}

}  // namespace

std::string FormatBare(const MetaObject& root, const Pairs& parameters) {
  if (HoldsRecords(root)) return FormatSimple(root, parameters);
  const std::string text = PlainText(&root, "\n");
  const bool isEmptyList = root.GetType() == MetaType::kList && ElementsOf(root).empty();
  return isEmptyList ? text : text + '\n';
}

std::string FormatSimple(const MetaObject& root, const Pairs& parameters) {
  std::string text;
  if (HoldsRecords(root)) {
    const RecordSet set = RecordsOf(root, parameters);
    for (const MetaStruct* record : set.records) {
      if (!text.empty()) text += '\n';
      text += Lines(*record, set);
    }
    return text;
  }
  if (root.GetType() != MetaType::kList) return Shown(&root) + '\n';
  for (const auto& element : ElementsOf(root)) text += Shown(element.get()) + '\n';
  return text;
}

std::string FormatTable(const MetaObject& root, const Pairs& parameters) {
  const RecordSet set = RecordsOf(root, parameters);
  if (set.columns.empty()) return {};
  std::vector<Row> rows(2);  // the header, and the dashes when the widths are known
  for (const Column& column : set.columns) rows[0].push_back(column.name);
  for (const MetaStruct* record : set.records) {
    Row& row = rows.emplace_back();
    for (const Column& column : set.columns) {
      row.push_back(ShownWithUnit(record->GetField(column.name).get(), column));
    }
  }
  std::vector<std::size_t> widths(set.columns.size());
  for (const Row& row : rows) {
    for (std::size_t index = 0; index < row.size(); ++index) {
      widths[index] = std::max(widths[index], DisplayWidth(row[index]));
    }
  }
  for (const std::size_t width : widths) rows[1].emplace_back(width, '-');
  std::string text;
  for (const Row& row : rows) text += TableLine(row, widths, set.columns);
  return text;
}

}  // namespace CliTools
