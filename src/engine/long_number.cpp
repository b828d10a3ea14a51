// A number is read in one of two ways: as a whole, which includes digits in front of it, skips its commas and ends at
// its second point; or as an argument, up to its first comma or from there to its second.
//
// Behind the point, places after the 1075th only decide whether a value is above a tie between two doubles. In front of
// the point, any digit but 0 with more than 309 digits behind it makes an infinity. So a run of digits keeps its
// beginning and its end, and one digit replaces the middle: 0 if all its digits are zeros, otherwise 1. If the text in
// front of the number can contain a point, its first digits can be decimals.
#include "engine/long_number.h"

#include <algorithm>
#include <utility>

namespace sumlet {
namespace {

constexpr std::size_t keptInFront = 1100;
constexpr std::size_t keptBehind = 320;

class Abridgement {
 public:
  explicit Abridgement(bool pointMayPrecede) : front_(pointMayPrecede ? keptInFront : 0) {}

  // Appends a field up to its second point, where reading ends.
  void AppendField(std::string_view field) {
    const std::size_t point = std::min(field.find('.'), field.size());
    AppendRun(field.substr(0, point), front_, keptBehind);
    if (point == field.size()) return;
    AppendPoint();
    field.remove_prefix(point + 1);
    const std::size_t second = std::min(field.find('.'), field.size());
    AppendRun(field.substr(0, second), keptInFront, 0);  // an argument has no digits in front of it
    if (second < field.size()) AppendPoint();
  }
  // Appends the text behind the second comma, which is only read as part of the whole.
  void AppendRest(std::string_view field) {
    if (points_ < 2) AppendField(field);
  }
  void Append(char sign) { text_ += sign; }
  [[nodiscard]] String Text() && { return std::move(text_); }

 private:
  void AppendPoint() {
    text_ += '.';
    ++points_;
    front_ = points_ < 2 ? keptInFront : 0;
  }
  void AppendRun(std::string_view run, std::size_t front, std::size_t behind) {
    front_ -= std::min(front_, run.size());
    if (run.size() <= front + 1 + behind) {
      text_ += run;
      return;
    }
    const std::string_view middle = run.substr(front, run.size() - front - behind);
    text_ += run.substr(0, front);
    text_ += middle.find_first_not_of('0') == std::string_view::npos ? '0' : '1';
    text_ += run.substr(run.size() - behind);
  }

  String text_;
  std::size_t front_;  // how many more digits behind the last point to keep
  int points_ = 0;
};

}  // namespace

String AbridgedNumber(std::string_view number, bool pointMayPrecede) {
  Abridgement result(pointMayPrecede);
  if (!number.empty() && number.front() == '-') {
    result.Append('-');
    number.remove_prefix(1);
  }
  for (int commas = 0; commas < 2; ++commas) {
    const std::size_t comma = std::min(number.find(','), number.size());
    result.AppendField(number.substr(0, comma));
    if (comma == number.size()) return std::move(result).Text();
    result.Append(',');
    number.remove_prefix(comma + 1);
  }
  result.AppendRest(ReplaceAll(number, ",", ""));
  return std::move(result).Text();
}

}  // namespace sumlet
