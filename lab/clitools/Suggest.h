// What somebody who mistyped a name may have meant.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace CliTools {

/// The candidates that `word` resembles in spelling (whatever its case) or begins: best first, at
/// most three, none if nothing is close.
std::vector<std::string> Nearest(std::string_view word, const std::vector<std::string>& candidates);

/// `did you mean "x"?`, `did you mean "x", "y" or "z"?`; empty if there are no names.
std::string DidYouMean(const std::vector<std::string>& names);

}  // namespace CliTools
