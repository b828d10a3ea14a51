// A number can be read in two ways. As a whole, behind whatever digits stand in front of it and with its commas passed
// over, up to its second point. Or, as an argument, up to its first comma or from there to its second.
//
// Behind the point, the places past the 1075th only decide that a value lies above a tie between two doubles; in front
// of the point, any digit with more than 309 behind it makes an infinity. So a run of digits keeps a beginning and an
// end, and one digit in the middle tells whether anything but zeros has been left out. Where digits written in front of
// the number can end in a point, its first digits may be places behind one.
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

  // The digits and points of a field, up to the second point: whatever way it is read, it ends there.
  void AppendField(std::string_view field) {
    const std::size_t point = std::min(field.find('.'), field.size());
    AppendRun(field.substr(0, point), front_, keptBehind);
    if (point == field.size()) return;
    AppendPoint();
    field.remove_prefix(point + 1);
    const std::size_t second = std::min(field.find('.'), field.size());
    AppendRun(field.substr(0, second), keptInFront, 0);  // read as an argument, it has no digits in front of it
    if (second < field.size()) AppendPoint();
  }
  // What stands behind the second comma is only read as a part of the whole.
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
  std::size_t front_;  // how many more of the digits behind the last point of the whole are kept
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
