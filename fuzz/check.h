// The functions that every fuzz target uses.
#pragma once

#include <cstdio>
#include <stdexcept>
#include <string_view>

namespace sumlet {

// Each target defines this function: it checks one input.
void CheckInput(std::string_view input);

// Throws std::logic_error if `holds` is false. The fuzzer then stops and keeps the input; the replay continues.
inline void Check(bool holds, const char* expectation) {
  if (holds) return;
  std::fprintf(stderr, "Broken: %s\n", expectation);
  throw std::logic_error(expectation);
}

}  // namespace sumlet
