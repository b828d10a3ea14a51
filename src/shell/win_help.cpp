#include "shell/win_help.h"

#include <QColor>
#include <QKeyEvent>
#include <QModelIndex>
#include <QPainter>
#include <QScrollBar>
#include <QString>

#include "framework/ui/fitting_font.h"
#include "framework/ui/placement.h"
#include "framework/ui/window.h"

namespace sumlet {
namespace {

constexpr int cardWidth = 540;         // pixels
constexpr int firstColumnWidth = 100;  // pixels
constexpr int columnMargins = 10;      // left and right of a column's text together, in pixels
constexpr QColor gridLine(0xD9, 0xD9, 0xD9);

struct HelpRow {
  const char* first;
  const char* second;
};

constexpr HelpRow helpRows[] = {
    {"-", "Substract"},
    {"+", "Add"},
    {"*", "Multiply"},
    {"/", "Divide"},
    {"\\", "Integer Divide"},
    {"^", "Power"},
    {"", ""},
    {"x mod y", "Modulus. The remainder of X divided by Y."},
    {"x % y", "Modulus."},
    {"", ""},
    {"|-10|", "Absolute value of anything between the pipes."},
    {"(2^2)-1", "Evaluate parenthesis first."},
    {"", ""},
    {"pi or π", "pi constant, 3.14"},
    {"RND", "Random number from 0 to 1.0, use like any variable"},
    {"", ""},
    {"// or ' or #", "Start a line with any of these to comment it out"},
    {"", ""},
    {"ABS(i)", "Absolute value of i"},
    {"ACOS(i)", "Arccosine. The angle whose cosine is i, in radians"},
    {"ASIN(i)", "Arcsine. The angle whose sine is i, in radians"},
    {"ATAN(i)", "Arctangent. The angle whose tangent is i, in radians"},
    {"ATAN2(y,x)", "Arctangent of the point whose coordinates are y and x, in radians"},
    {"DEG(i)", "Convert Radians to Degrees"},
    {"CEIL(i)", "Rounds i up to the nearest number"},
    {"COS(i)", "Cosine of i, in radians"},
    {"EXP(i)", "\"e\" to the power of i"},
    {"FLOOR(i)", "Rounds i down to the nearest number"},
    {"LOG(i)", "Natural logarithm of i"},
    {"MAX(x,y)", "The larger of the two values"},
    {"MIN(x,y)", "The smaller of the two values"},
    {"POW(x,y)", "x to the power of y, same as using ^"},
    {"RAD(i)", "Convert Degrees to Radians"},
    {"ROUND(i)", "Rounds i to the nearest integer"},
    {"SIGN(i)", "-1 if i is negative, 0 if i is 0, 1 if i is positive"},
    {"SIN(i)", "Sine of i, in radians"},
    {"SQRT(i)", "Square root of i"},
    {"TAN(i)", "Tangent of angle i, in radians"},
    {"", ""},
    {"DEC(i)", "Convert from fraction to decimal DEC( 1 1/2)"},
    {"FRAC(i)", "Convert from decimal to fraction FRAC( 1.33 )"},
};

// Scrolls the current row to the top at each key. The card does not highlight the current row, so a key that only moved
// it would seem to do nothing.
class CardList final : public Listbox {
 public:
  using Listbox::Listbox;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const QModelIndex before = currentIndex();
    Listbox::keyPressEvent(event);
    if (currentIndex() != before) scrollTo(currentIndex(), PositionAtTop);
  }
};

}  // namespace

winHelp& winHelp::Instance() {
  winHelp* open = OpenWindow<winHelp>();
  return open ? *open : *new winHelp;
}

winHelp::winHelp() { Create(); }

void winHelp::Layout() {
  setWindowTitle(tr("Help"));
  setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                 Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint);
  SetSizeLimits({64, 64}, {32000, 32000});
  SetWidth(538);
  SetHeight(580);
  SetPlacement(Placement::Centred);
  SetEscapeCloses();
}

void winHelp::CreateControls() {
  list_ = new CardList(Content());
  list_->setAccessibleName(tr("The line language"));
  list_->CellBackgroundPaint = list_CellBackgroundPaint;
  list_->CellTextPaint = list_CellTextPaint;
  list_->SetFirstColumnWidth(firstColumnWidth);
  for (const HelpRow& row : helpRows) {
    list_->AddRow(row.first, row.second);
    FitFont(0, row.first);
    FitFont(1, row.second);
  }
  AddControl(*list_, {-1, -1, cardWidth, 581}, Lock::Left | Lock::Top | Lock::Right | Lock::Bottom);
  list_Open();
}

// Makes the card's font smaller until the text fits the column's initial width.
void winHelp::FitFont(Int32 column, const char* text) {
  const int bar = list_->verticalScrollBar()->sizeHint().width();
  const int width = column == 0 ? firstColumnWidth : cardWidth - 2 * list_->frameWidth() - firstColumnWidth - bar;
  list_->setFont(FittingFont(list_->font(), QString::fromUtf8(text), {width - columnMargins, QWIDGETSIZE_MAX}));
}

void winHelp::list_Open() {
  list_->SetColumnAlignment(0, ColumnAlignment::Right);
  list_->setFocus();
}

// Also paints the selected row white, because a card has nothing to select. The line separates the columns.
bool winHelp::list_CellBackgroundPaint(CellGraphics& g, Int32 /*row*/, Int32 column) {
  g.painter.fillRect(0, 0, g.Width, g.Height, Qt::white);
  if (column == 0) g.painter.fillRect(g.Width - 1, 0, 1, g.Height, gridLine);
  return true;
}

bool winHelp::list_CellTextPaint(CellGraphics& g, Int32 /*row*/, Int32 /*column*/) {
  g.painter.setPen(Qt::black);
  return false;
}

}  // namespace sumlet
