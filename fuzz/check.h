// What the fuzz targets share.
#pragma once

#include <cstdio>
#include <stdexcept>
#include <string_view>

namespace sumlet {

// What a target does with an input.
void CheckInput(std::string_view input);

// What a target says must hold. The fuzzer, where nothing catches the exception, keeps the input; the replay goes on.
inline void Check(bool holds, const char* expectation) {
  if (holds) return;
  std::fprintf(stderr, "Broken: %s\n", expectation);
  throw std::logic_error(expectation);
}

}  // namespace sumlet
