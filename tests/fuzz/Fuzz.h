#pragma once

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>

/// Aborts unless the condition holds; the fuzzer keeps the input.
inline void Require(const char* what, bool holds) {
  if (holds) return;
  std::cerr << "does not hold: " << what << std::endl;
  std::abort();
}
