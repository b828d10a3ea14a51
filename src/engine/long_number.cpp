#include "engine/long_number.h"

#include <algorithm>

namespace sumlet {
namespace {

// A run of digits keeps its beginning and its end. Behind the point, the places past the 1075th only decide that a
// value lies above a tie between two doubles; in front of the point, any digit with more than 309 behind it makes an
// infinity. One digit in the middle tells whether anything but zeros has been left out.
constexpr std::size_t keptInFront = 1100;
constexpr std::size_t keptBehind = 320;

void AppendRun(String& result, std::string_view run) {
  if (run.size() <= keptInFront + 1 + keptBehind) {
    result += run;
    return;
  }
  const std::string_view middle = run.substr(keptInFront, run.size() - keptInFront - keptBehind);
  result += run.substr(0, keptInFront);
  result += middle.find_first_not_of('0') == std::string_view::npos ? '0' : '1';
  result += run.substr(run.size() - keptBehind);
}

// Digits and points. A number ends at its second point, and what is behind that is never read.
void AppendField(String& result, std::string_view field) {
  for (int points = 0; points < 2 && !field.empty(); ++points) {
    const std::size_t point = std::min(field.find('.'), field.size());
    AppendRun(result, field.substr(0, point));
    if (point < field.size()) result += '.';
    field.remove_prefix(std::min(point + 1, field.size()));
  }
}

}  // namespace

// The first two commas may divide the arguments of a function, the others only groups of digits.
String AbridgedNumber(std::string_view number) {
  String result;
  if (!number.empty() && number.front() == '-') {
    result += '-';
    number.remove_prefix(1);
  }
  for (int commas = 0; commas < 2; ++commas) {
    const std::size_t comma = number.find(',');
    if (comma == std::string_view::npos) break;
    AppendField(result, number.substr(0, comma));
    result += ',';
    number.remove_prefix(comma + 1);
  }
  AppendField(result, ReplaceAll(number, ",", ""));
  return result;
}

}  // namespace sumlet
