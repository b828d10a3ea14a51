#include "equationwindow/value_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "engine/math_class.h"
#include "equationwindow/line_values.h"

namespace sumlet {
namespace {

// In an area 120 pixels wide, each character 10 wide. Text at the right edge has a negative width.
TEST(ValueText, IsPlacedAtTheEdgeOrCutOrLeftOut) {
  const std::tuple<const char*, double, const char*> rows[] = {
      {"", 0, ""},
      {"5", 0, "5 at 110"},
      {"1234567890", 0, "1234567890 at 20"},
      {"1234567890", 1, "12345678… at 30"},
      {"123", 70, "123 at 90"},
      {"1234", 70, "12… at 90"},
      {"1234", 71, ""},
      {"5", 90, "5 at 110"},
      {"5", 91, ""},
      {"5", 120, ""},
      {"5", -1, "5 at 0"},
      {"1234567890", -20, "1234567… at 0"},
  };
  for (const auto& [value, textWidth, shown] : rows) {
    const ValueRoom room{std::max(textWidth, 0.0), 120 + std::min(textWidth, 0.0), textWidth < 0};
    const PlacedValue placed = PlaceValue(value, room, [](QChar) { return 10.0; });
    const QString text = placed.text.isEmpty() ? "" : QStringLiteral("%1 at %2").arg(placed.text).arg(placed.left);
    EXPECT_EQ(text.toStdString(), shown) << value << " beside " << textWidth;
  }
}

TEST(ValueText, IsCopiedInAColumn) {
  const String longLine = "1" + String(100, ' ') + "+1";
  MathClass math("# the longest of all\nπ=3\n2(3+4)\n" + longLine + "\n\nfoo\n7");
  const String copied = TextWithValues(math.equationText, LineValues(math), 1, 9);
  EXPECT_EQ(copied, "π=3     → 3\n2(3+4)  → 14\n" + longLine + "  → 2\n\nfoo\n7");
}

}  // namespace
}  // namespace sumlet
