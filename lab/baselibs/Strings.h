#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace BaseLibs {

/// Joins the strings that `textOf` returns for the items, with `separator` between them.
template <class Items, class TextOf = std::identity>
std::string Join(const Items& items, std::string_view separator, TextOf&& textOf = {}) {
  std::string joined;
  bool isFirst = true;
  for (const auto& item : items) {
    if (!isFirst) joined += separator;
    joined += std::invoke(textOf, item);
    isFirst = false;
  }
  return joined;
}

/// Returns the parts of `text` between the separators, at least one. They refer to `text`.
inline std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  std::size_t end = text.find(separator);
  for (; end != std::string_view::npos; end = text.find(separator)) {
    parts.push_back(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  parts.push_back(text);
  return parts;
}

/// Returns `text` without the spaces around it.
inline std::string_view Trim(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

}  // namespace BaseLibs
