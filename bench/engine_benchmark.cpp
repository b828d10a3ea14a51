// The time of an evaluation as a text grows in different ways. "per_step" is the time for one line, operator or
// parenthesis. It must be the same for all lengths.
#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "engine/math_class.h"

namespace sumlet {
namespace {

void Evaluate(benchmark::State& state, const std::string& text, std::int64_t steps) {
  MathClass math(text);
  std::string result;
  for (auto _ : state) benchmark::DoNotOptimize(result = math.Evaluate());
  if (math.ResultIsError(result)) state.SkipWithError(result.c_str());
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
  state.counters["per_step"] = benchmark::Counter(
      static_cast<double>(steps), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

std::string Repeated(std::string_view head, std::string_view piece, std::int64_t count) {
  std::string text(head);
  text.reserve(head.size() + piece.size() * static_cast<std::size_t>(count));
  for (std::int64_t i = 0; i < count; ++i) text += piece;
  return text;
}

// A name of letters only, because a digit would end it.
std::string Name(std::int64_t number) {
  std::string name = "v";
  for (int i = 0; i < 4; ++i, number /= 26) name += static_cast<char>('a' + number % 26);
  return name;
}

void Lines(benchmark::State& state) {
  const std::string four = "a=(b+3.5)/2\nb=sqrt(a*a+1)\nc=max(a,b)*2-1\nabs(c-4)+a*2\n";
  Evaluate(state, Repeated("b=1\n", four, state.range(0) / 4), state.range(0));
}
BENCHMARK(Lines)->Arg(10)->Arg(10'000)->Unit(benchmark::kMicrosecond);

void Sum(benchmark::State& state) { Evaluate(state, Repeated("1", "+1", state.range(0)), state.range(0)); }
BENCHMARK(Sum)->RangeMultiplier(10)->Range(100, 100'000)->Unit(benchmark::kMicrosecond);

// All levels of precedence, so that the search for the next operator has to skip others.
void MixedOperators(benchmark::State& state) {
  Evaluate(state, Repeated("1", "+3^2*2-7/4-7.25-7", state.range(0) / 7), state.range(0));
}
BENCHMARK(MixedOperators)->RangeMultiplier(10)->Range(100, 100'000)->Unit(benchmark::kMicrosecond);

void SideBySide(benchmark::State& state) { Evaluate(state, Repeated("1", " 1", state.range(0)), state.range(0)); }
BENCHMARK(SideBySide)->RangeMultiplier(10)->Range(100, 100'000)->Unit(benchmark::kMicrosecond);

void NestedLeft(benchmark::State& state) {
  Evaluate(state, Repeated(Repeated("", "(", state.range(0)) + "1", "+1)", state.range(0)), state.range(0));
}
BENCHMARK(NestedLeft)->RangeMultiplier(10)->Range(10, 100'000)->Unit(benchmark::kMicrosecond);

void NestedRight(benchmark::State& state) {
  Evaluate(state, Repeated(Repeated("", "(1+", state.range(0)) + "1", ")", state.range(0)), state.range(0));
}
BENCHMARK(NestedRight)->RangeMultiplier(10)->Range(10, 100'000)->Unit(benchmark::kMicrosecond);

void Calls(benchmark::State& state) {
  Evaluate(state, Repeated("1", "+sqrt(max(4,9))", state.range(0)), state.range(0));
}
BENCHMARK(Calls)->RangeMultiplier(10)->Range(10, 10'000)->Unit(benchmark::kMicrosecond);

void Bars(benchmark::State& state) { Evaluate(state, Repeated("1", "+|-2|", state.range(0)), state.range(0)); }
BENCHMARK(Bars)->RangeMultiplier(10)->Range(10, 10'000)->Unit(benchmark::kMicrosecond);

// As many variables as lines, and one long line that uses them all.
void Substitution(benchmark::State& state) {
  std::string text;
  std::string sum = "0";
  for (std::int64_t i = 0; i < state.range(0); ++i) {
    text.append(Name(i)).append("=").append(std::to_string(i)).append("\n");
    sum.append("+").append(Name(i));
  }
  Evaluate(state, text + sum, state.range(0));
}
BENCHMARK(Substitution)->RangeMultiplier(10)->Range(10, 100'000)->Unit(benchmark::kMicrosecond);

// The time for one result, by its form: a short number, ten decimals, and the longest number.
void Formatting(benchmark::State& state, const char* operation) {
  std::string text;
  for (int i = 0; i < 1000; ++i) text.append(operation).append("\n");
  Evaluate(state, text, 1000);
}
BENCHMARK_CAPTURE(Formatting, whole, "20+22")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Formatting, decimals, "2/3")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Formatting, widest, "10^308")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace sumlet
