// The formatters for people: the bare value, simple, table.
#include <algorithm>
#include <cctype>
#include <limits>
#include <numeric>

#include "baselibs/Text.h"
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
  return text.empty() || column.unit.empty() ? text : text + ' ' + Printable(column.unit);
}

/// A caption "%Field%" is the value of that field.
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
    const auto* const value = set.ValueOf(record, column);
    if (value) lines += "   " + Printable(column.name) + ": " + ShownWithUnit(value, column) + '\n';
  }
  return lines;
}

using Row = std::vector<std::string>;
using Widths = std::vector<std::size_t>;

/// The columns' widths if no cell is wrapped.
Widths NaturalWidths(const std::vector<Row>& rows) {
  Widths widths(rows.front().size());
  for (const Row& row : rows) {
    for (std::size_t index = 0; index < row.size(); ++index) {
      widths[index] = std::max(widths[index], DisplayWidth(row[index]));
    }
  }
  return widths;
}

/// The columns' least widths: none breaks a word.
Widths LeastWidths(const std::vector<Row>& rows) {
  Widths widths(rows.front().size());
  for (const Row& row : rows) {
    for (std::size_t index = 0; index < row.size(); ++index) {
      std::string_view cell = row[index];
      while (!cell.empty()) {
        const std::string_view word = cell.substr(0, cell.find(' '));
        widths[index] = std::max(widths[index], DisplayWidth(word));
        cell.remove_prefix(std::min(cell.size(), word.size() + 1));
      }
    }
  }
  return widths;
}

std::size_t LineWidth(const Widths& widths) {
  return std::accumulate(widths.begin(), widths.end(), kColumnGap.size() * (widths.size() - 1));
}

/// The columns' widths, the widest columns narrowed as far as the page demands. Empty if even words
/// would have to be broken.
Widths FitWidths(const std::vector<Row>& rows, std::size_t page) {
  Widths widths = NaturalWidths(rows);
  if (page == 0 || LineWidth(widths) <= page) return widths;
  const Widths least = LeastWidths(rows);
  if (LineWidth(least) > page) return {};
  for (std::size_t excess = LineWidth(widths) - page; excess > 0; --excess) {
    std::size_t widest = widths.size();
    for (std::size_t index = 0; index < widths.size(); ++index) {
      if (widths[index] == least[index]) continue;
      if (widest == widths.size() || widths[index] > widths[widest]) widest = index;
    }
    --widths[widest];
  }
  return widths;
}

bool IsUuid(std::string_view text) {
  constexpr std::string_view kForm = "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx";
  return std::ranges::equal(text, kForm, [](char c, char form) {
    return form == '-' ? c == '-' : std::isxdigit(static_cast<unsigned char>(c)) != 0;
  });
}

/// Whether there are UUIDs; each becomes its beginning, which as a rule tells them apart.
bool ShortenUuids(std::vector<Row>& rows) {
  bool found = false;
  for (Row& row : rows) {
    for (std::string& cell : row) {
      if (!IsUuid(cell)) continue;
      cell = cell.substr(0, 8) + "\u2026";
      found = true;
    }
  }
  return found;
}

/// Whether the column's texts are all those of one before it.
bool Repeats(const std::vector<Row>& rows, std::size_t column) {
  for (std::size_t before = 0; before < column; ++before) {
    const auto isSame = [=](const Row& row) { return row[before] == row[column]; };
    if (std::all_of(rows.begin() + 1, rows.end(), isSame)) return true;
  }
  return false;
}

/// Takes from a table what does not fit the page: of UUIDs all but their beginnings, then columns
/// but the first, texts that repeat another column's before the others, wider ones before narrower
/// ones. Returns what somebody who looks at it must know, as a line.
std::string MakeFit(std::vector<Row>& rows, std::vector<Column>& columns, std::size_t page) {
  Widths dispensable = LeastWidths(rows);
  for (std::size_t index = 1; index < columns.size(); ++index) {
    // Numbers and truth values are the same by chance.
    if (columns[index].type == MetaType::kString && Repeats(rows, index)) {
      dispensable[index] = std::numeric_limits<std::size_t>::max();
    }
  }
  std::vector<Row> shortened = rows;
  ShortenUuids(shortened);
  Widths least = LeastWidths(shortened);
  std::size_t leftOut = 0;
  for (; LineWidth(least) > page && least.size() > 1; ++leftOut) {
    const auto widest = std::max_element(dispensable.rbegin(), dispensable.rend() - 1);
    const auto place = dispensable.rend() - widest - 1;
    for (Row& row : rows) row.erase(row.begin() + place);
    columns.erase(columns.begin() + place);
    least.erase(least.begin() + place);
    dispensable.erase(dispensable.begin() + place);
  }
  std::vector<std::string> remarks;
  if (leftOut > 0) {
    remarks.push_back(std::to_string(leftOut) + (leftOut == 1 ? " field is" : " fields are") +
                      " left out");
  }
  if (ShortenUuids(rows)) remarks.emplace_back("UUIDs are cut short");
  return '(' + BaseLibs::Join(remarks, ", ") + "; --fields chooses what is shown.)\n";
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

/// The lines that a row takes, each with its part of every cell.
std::vector<Row> WrapCells(const Row& row, const Widths& widths) {
  std::vector<Row> lines(1, Row(row.size()));
  for (std::size_t index = 0; index < row.size(); ++index) {
    if (DisplayWidth(row[index]) <= widths[index]) {
      lines.front()[index] = row[index];
      continue;
    }
    const std::string wrapped = Wrap(row[index], 0, widths[index]);
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

std::string FormatBare(const MetaObject& root, const Pairs& parameters, const Style& style) {
  if (HoldsRecords(root)) return FormatSimple(root, parameters, style);
  const std::string text = PlainText(&root, "\n");
  const bool isEmptyList = root.GetType() == MetaType::kList && ElementsOf(root).empty();
  return isEmptyList ? text : text + '\n';
}

std::string FormatSimple(const MetaObject& root, const Pairs& parameters, const Style& style) {
  std::string text;
  if (HoldsRecords(root)) {
    const RecordSet set = RecordsOf(root, parameters);
    for (const MetaStruct* record : set.records) {
      if (!text.empty()) text += '\n';
      text += Lines(*record, set, style);
    }
    return text;
  }
  if (root.GetType() != MetaType::kList) return Shown(&root) + '\n';
  for (const auto& element : ElementsOf(root)) text += Shown(element.get()) + '\n';
  return text;
}

std::string FormatTable(const MetaObject& root, const Pairs& parameters, const Style& style) {
  RecordSet set = RecordsOf(root, parameters);
  if (set.columns.empty()) return {};
  std::vector<Row> rows(1);
  for (const Column& column : set.columns) rows[0].push_back(Printable(column.name));
  for (const MetaStruct* record : set.records) {
    Row& row = rows.emplace_back();
    for (const Column& column : set.columns) {
      row.push_back(ShownWithUnit(set.ValueOf(*record, column), column));
    }
  }
  Widths widths = FitWidths(rows, style.width);
  std::string remark;
  if (widths.empty()) {
    remark = MakeFit(rows, set.columns, style.width);
    widths = FitWidths(rows, style.width);
    if (!style.isChosen && rows.front().size() == 1) {
      return FormatSimple(root, parameters, style) +
             "(This is too narrow for a table; --fields chooses what is shown.)\n";
    }
    if (widths.empty()) widths = NaturalWidths(rows);
  }
  std::string text;
  for (const Row& line : WrapCells(rows.front(), widths)) {
    text += Caption(TableLine(line, widths, set.columns), style) + '\n';
  }
  Row dashes;
  for (const std::size_t width : widths) dashes.emplace_back(width, '-');
  rows.front() = std::move(dashes);
  if (!style.header) {
    text.clear();
    rows.erase(rows.begin());
  }
  for (const Row& row : rows) {
    for (const Row& line : WrapCells(row, widths)) {
      text += TableLine(line, widths, set.columns) + '\n';
    }
  }
  return text + remark;
}

}  // namespace CliTools
