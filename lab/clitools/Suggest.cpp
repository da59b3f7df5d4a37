#include "clitools/Suggest.h"

#include <algorithm>
#include <utility>

#include "clitools/Display.h"

namespace CliTools {

namespace {

constexpr std::size_t kMostSuggestions = 3;

/// Returns the number of typing errors that turn `from` into `to`: characters inserted, omitted,
/// replaced, or swapped with a neighbour.
std::size_t EditDistance(std::string_view from, std::string_view to) {
  const std::size_t columns = to.size() + 1;
  std::vector<std::size_t> cells((from.size() + 1) * columns);
  const auto at = [&](std::size_t row, std::size_t column) -> std::size_t& {
    return cells[row * columns + column];
  };
  for (std::size_t row = 0; row <= from.size(); ++row) at(row, 0) = row;
  for (std::size_t column = 0; column <= to.size(); ++column) at(0, column) = column;
  for (std::size_t row = 1; row <= from.size(); ++row) {
    for (std::size_t column = 1; column <= to.size(); ++column) {
      const std::size_t wrong = from[row - 1] == to[column - 1] ? 0 : 1;
      at(row, column) = std::min(
          {at(row - 1, column) + 1, at(row, column - 1) + 1, at(row - 1, column - 1) + wrong});
      const bool swapped = row > 1 && column > 1 && from[row - 1] == to[column - 2] &&
                           from[row - 2] == to[column - 1];
      if (swapped) at(row, column) = std::min(at(row, column), at(row - 2, column - 2) + 1);
    }
  }
  return at(from.size(), to.size());
}

}  // namespace

std::vector<std::string> Nearest(std::string_view word,
                                 const std::vector<std::string>& candidates) {
  const std::string typed = LowerCase(word);
  std::vector<std::pair<std::size_t, std::string>> close;
  for (const std::string& candidate : candidates) {
    const std::string name = LowerCase(candidate);
    const auto [shorter, longer] = std::minmax({typed.size(), name.size()});
    const std::size_t limit = longer < 2 ? 0 : std::max<std::size_t>(1, longer / 3);
    if (!typed.empty() && name.starts_with(typed)) {
      close.emplace_back(name == typed ? 0 : 1, candidate);
    } else if (longer - shorter <= limit) {  // else the distance exceeds the limit
      const std::size_t distance = EditDistance(typed, name);
      if (distance <= limit) close.emplace_back(distance, candidate);
    }
  }
  std::ranges::stable_sort(close, {}, [](const auto& entry) { return entry.first; });
  if (close.size() > kMostSuggestions) close.resize(kMostSuggestions);
  std::vector<std::string> names;
  names.reserve(close.size());
  for (auto& [distance, name] : close) names.push_back(std::move(name));
  return names;
}

std::string DidYouMean(const std::vector<std::string>& names) {
  if (names.empty()) return {};
  std::string text = "did you mean ";
  for (std::size_t index = 0; index < names.size(); ++index) {
    if (index > 0) text += index + 1 == names.size() ? " or " : ", ";
    text += Quote(names[index]);
  }
  return text + "?";
}

}  // namespace CliTools
