// Suggestions for mistyped names.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace CliTools {

/// Returns at most three candidates that begin with `word` or resemble it, regardless of case; the
/// closest first.
std::vector<std::string> Nearest(std::string_view word, const std::vector<std::string>& candidates);

/// Returns `did you mean "x", "y" or "z"?`; empty if there are no names.
std::string DidYouMean(const std::vector<std::string>& names);

}  // namespace CliTools
