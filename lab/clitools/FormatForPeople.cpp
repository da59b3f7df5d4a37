// The formatters for people: bare values, "simple" and "table".
#include <algorithm>
#include <numeric>
#include <span>

#include "baselibs/Strings.h"
#include "clitools/Display.h"
#include "clitools/Formatters.h"

namespace CliTools {

namespace {

constexpr std::string_view kColumnGap = "  ";

std::string Shown(const MetaObject* value) {
  return Printable(PlainText(value, ", "));
}

std::string ShownWithUnit(const MetaObject* value, const Column& column) {
  const std::string text = Shown(value);
  return text.empty() || column.unit.empty() ? text : text + ' ' + Printable(column.unit);
}

/// A caption "%Field%" stands for the value of that field.
std::string CaptionOf(const MetaStruct& record, const std::string& caption) {
  if (caption.size() > 2 && caption.starts_with('%') && caption.ends_with('%')) {
    const auto value = record.GetField(caption.substr(1, caption.size() - 2));
    if (value) return Shown(value.get());
  }
  return Printable(caption);
}

std::string Lines(const MetaStruct& record, const RecordSet& set, const Style& style) {
  std::string lines;
  if (!set.caption.empty()) lines += Caption(CaptionOf(record, set.caption), style) + '\n';
  for (const Column& column : set.columns) {
    const auto* const value = ValueOf(record, column);
    if (value) lines += "   " + Printable(column.name) + ": " + ShownWithUnit(value, column) + '\n';
  }
  return lines;
}

using Row = std::vector<std::string>;
using Widths = std::vector<std::size_t>;

/// Returns the largest `measure` of each column's cells.
template <class Measure>
Widths LargestCells(const std::vector<Row>& rows, Measure&& measure) {
  Widths widths(rows.front().size());
  for (const Row& row : rows) {
    for (std::size_t index = 0; index < row.size(); ++index) {
      widths[index] = std::max(widths[index], measure(row[index]));
    }
  }
  return widths;
}

std::size_t WidestWord(std::string_view cell) {
  return DisplayWidth(std::ranges::max(BaseLibs::Split(cell, ' '), {}, DisplayWidth));
}

std::size_t LineWidth(const Widths& widths) {
  return std::accumulate(widths.begin(), widths.end(), kColumnGap.size() * (widths.size() - 1));
}

/// Returns the columns' widths, with the widest columns narrowed so far that a line fits the page.
/// Empty when words would have to be broken.
Widths FitWidths(const std::vector<Row>& rows, std::size_t page) {
  Widths natural = LargestCells(rows, DisplayWidth);
  if (page == 0) return natural;
  const Widths least = LargestCells(rows, WidestWord);
  if (LineWidth(least) > page) return {};
  Widths widths = natural;
  for (std::size_t most = page; LineWidth(widths) > page; --most) {
    for (std::size_t index = 0; index < widths.size(); ++index) {
      widths[index] = std::clamp(most, least[index], natural[index]);
    }
  }
  return widths;
}

std::string TableLine(const Row& cells, const Widths& widths, const std::vector<Column>& columns) {
  std::string line;
  for (std::size_t index = 0; index < cells.size(); ++index) {
    const std::size_t padding = widths[index] - DisplayWidth(cells[index]);
    if (index > 0) line += kColumnGap;
    const bool isNumber = columns[index].type == MetaType::kInt;
    if (isNumber) line.append(padding, ' ');
    line += cells[index];
    if (!isNumber) line.append(padding, ' ');
  }
  line.resize(line.find_last_not_of(' ') + 1);
  return line;
}

/// Splits a row into lines, each with its part of every cell.
std::vector<Row> WrapCells(const Row& row, const Widths& widths) {
  std::vector<Row> lines(1, Row(row.size()));
  for (std::size_t index = 0; index < row.size(); ++index) {
    if (DisplayWidth(row[index]) <= widths[index]) {
      lines.front()[index] = row[index];
      continue;
    }
    const std::string wrapped = Wrap(BaseLibs::Trim(row[index]), 0, widths[index]);
    std::size_t begin = 0;
    for (std::size_t line = 0; begin < wrapped.size(); ++line) {
      const std::size_t end = wrapped.find('\n', begin);
      if (line == lines.size()) lines.emplace_back(row.size());
      lines[line][index] = wrapped.substr(begin, end - begin);
      begin = end + 1;
    }
  }
  return lines;
}

}  // namespace

void FormatBare(const MetaObject& root, const Pairs& parameters, const Style& style,
                const Sink& sink) {
  if (HoldsRecords(root)) return FormatSimple(root, parameters, style, sink);
  const bool isEmptyList = root.GetType() == MetaType::kList && ElementsOf(root).empty();
  if (!isEmptyList) sink(PlainText(&root, "\n") + '\n');
}

void FormatSimple(const MetaObject& root, const Pairs& parameters, const Style& style,
                  const Sink& sink) {
  if (HoldsRecords(root)) {
    const RecordSet set = RecordsOf(root, parameters);
    std::string_view separator;
    for (const MetaStruct* record : set.records) {
      sink(separator);
      sink(Lines(*record, set, style));
      separator = "\n";
    }
  } else if (root.GetType() == MetaType::kList) {
    for (const auto& element : ElementsOf(root)) sink(Shown(element.get()) + '\n');
  } else {
    sink(Shown(&root) + '\n');
  }
}

void FormatTable(const MetaObject& root, const Pairs& parameters, const Style& style,
                 const Sink& sink) {
  const RecordSet set = RecordsOf(root, parameters);
  if (set.columns.empty()) return;
  std::vector<Row> rows(1);
  for (const Column& column : set.columns) rows[0].push_back(Printable(column.name));
  for (const MetaStruct* record : set.records) {
    Row& row = rows.emplace_back();
    for (const Column& column : set.columns) {
      row.push_back(ShownWithUnit(ValueOf(*record, column), column));
    }
  }
  const Widths widths = FitWidths(rows, style.width);
  if (widths.empty()) return FormatSimple(root, parameters, style, sink);
  if (style.header) {
    for (const Row& line : WrapCells(rows.front(), widths)) {
      sink(Caption(TableLine(line, widths, set.columns), style) + '\n');
    }
    Row dashes;
    for (const std::size_t width : widths) dashes.emplace_back(width, '-');
    sink(TableLine(dashes, widths, set.columns) + '\n');
  }
  for (const Row& row : std::span(rows).subspan(1)) {
    for (const Row& line : WrapCells(row, widths)) {
      sink(TableLine(line, widths, set.columns) + '\n');
    }
  }
}

}  // namespace CliTools
