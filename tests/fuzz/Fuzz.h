// What the fuzz targets share.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <utility>

namespace Fuzz {

/// Ends the run when the two differ; the fuzzer keeps the input.
template <class Actual, class Expected>
void Same(const char* what, const Actual& actual, const Expected& expected) {
  if (actual == expected) return;
  std::cerr << what << " is\n" << actual << "\nand not\n" << expected << std::endl;
  std::abort();
}

/// An input's parts, each ended by the same byte.
class Parts {
 public:
  Parts(std::string input, char separator) : rest_(std::move(input)), separator_(separator) {}

  bool HasMore() const { return !rest_.empty(); }
  /// Empty when there is none.
  std::string Next() {
    const std::size_t end = std::min(rest_.find(separator_), rest_.size());
    std::string part = rest_.substr(0, end);
    rest_.erase(0, end + 1);
    return part;
  }
  const std::string& Rest() const { return rest_; }

 private:
  std::string rest_;
  char separator_;
};

/// The number that `text` begins with, as `strtoll` and streams read it: white space and a sign may
/// stand before it; 0 if there is none. Of more than 30 digits it is 2 to the power of 100.
inline __int128 LeadingNumber(const std::string& text) {
  std::size_t at = std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size());
  const bool isNegative = text[at] == '-';
  if (isNegative || text[at] == '+') ++at;
  __int128 number = 0;
  for (; text[at] >= '0' && text[at] <= '9'; ++at) {
    number = std::min(number * 10 + (text[at] - '0'), __int128{1} << 100);
  }
  return isNegative ? -number : number;
}

}  // namespace Fuzz
