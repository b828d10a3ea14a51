// Mathematical functions under the names that the language's functions are built on. Angles are in radians. An argument
// outside the domain results in not-a-number or an infinity, never an error.
#pragma once

#include <cmath>

namespace sumlet {

[[nodiscard]] inline double Abs(double x) { return std::fabs(x); }
[[nodiscard]] inline double Sqrt(double x) { return std::sqrt(x); }
[[nodiscard]] inline double Exp(double x) { return std::exp(x); }
[[nodiscard]] inline double Log(double x) { return std::log(x); }  // natural logarithm
[[nodiscard]] inline double Pow(double x, double y) { return std::pow(x, y); }
[[nodiscard]] inline double Sin(double x) { return std::sin(x); }
[[nodiscard]] inline double Cos(double x) { return std::cos(x); }
[[nodiscard]] inline double Tan(double x) { return std::tan(x); }
[[nodiscard]] inline double ASin(double x) { return std::asin(x); }
[[nodiscard]] inline double ACos(double x) { return std::acos(x); }
[[nodiscard]] inline double ATan(double x) { return std::atan(x); }
[[nodiscard]] inline double ATan2(double y, double x) { return std::atan2(y, x); }
[[nodiscard]] inline double Ceil(double x) { return std::ceil(x); }
[[nodiscard]] inline double Floor(double x) { return std::floor(x); }

// Rounds to the nearest integer; ties away from zero.
[[nodiscard]] inline double Round(double x) { return std::round(x); }
// -1, 0 or 1; 0 for not-a-number.
[[nodiscard]] inline int Sign(double x) { return (x > 0) - (x < 0); }
[[nodiscard]] inline double Max(double a, double b) { return a > b ? a : b; }
[[nodiscard]] inline double Min(double a, double b) { return a < b ? a : b; }

}  // namespace sumlet
