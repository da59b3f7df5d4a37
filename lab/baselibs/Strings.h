#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace BaseLibs {

/// The texts that `textOf` yields for each of the items, `separator` between them.
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

}  // namespace BaseLibs
