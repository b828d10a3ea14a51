// Check: what a fuzz target says must hold. The fuzzer keeps the input of a run that aborts.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace sumlet {

inline void Check(bool holds, const char* expectation) {
  if (holds) return;
  std::fprintf(stderr, "Broken: %s\n", expectation);
  std::abort();
}

inline std::string_view Input(const unsigned char* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

}  // namespace sumlet
