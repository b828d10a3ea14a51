// Worked examples of the line language: what a user types, and what comes out.
#pragma once

#include <span>

namespace sumlet {

struct Example {
  const char* text;
  const char* result;
  const char* details = nullptr;  // ResultDetails; for an error always given
  int lastLine = -1;              // LastLineEvaluated, where the example is about it
};

[[nodiscard]] std::span<const Example> WorkedExamples();

}  // namespace sumlet
