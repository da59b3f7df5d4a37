// What the fuzz targets share.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>

/// Ends the run if it does not hold; the fuzzer keeps the input.
inline void Require(const char* what, bool holds) {
  if (holds) return;
  std::cerr << "does not hold: " << what << std::endl;
  std::abort();
}
