// What the fuzz targets share.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace sumlet {

// What a target does with an input.
void CheckInput(std::string_view input);

// What a target says must hold. The fuzzer keeps the input of a run that aborts.
inline void Check(bool holds, const char* expectation) {
  if (holds) return;
  std::fprintf(stderr, "Broken: %s\n", expectation);
  std::abort();
}

}  // namespace sumlet
