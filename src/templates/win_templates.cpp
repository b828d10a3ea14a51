// A template may be megabytes long, and a row is painted at each move of the scroll bar. So the preview lays out no
// more than the cell can show: as many lines as fit into its height, and of each line as many characters as would fill
// the cell if each were one pixel wide.
#include "templates/win_templates.h"

#include <QColor>
#include <QFont>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QPainter>
#include <QPointF>
#include <QRect>
#include <QTextLayout>
#include <QTextOption>
#include <algorithm>
#include <cstddef>
#include <list>
#include <string_view>
#include <utility>

#include "framework/text/variant.h"
#include "framework/ui/fitting_font.h"
#include "framework/ui/menu_bar.h"
#include "framework/ui/qt_text.h"
#include "framework/ui/window.h"
#include "persistence/key_list.h"
#include "persistence/preferences.h"

namespace sumlet {
namespace {

constexpr Int32 smallTextSize = 11;  // pixels
constexpr Int32 rowHeight = 60;      // pixels
constexpr Int32 nameColumnWidth = 200;
constexpr Int32 nameMargins = 10;  // horizontal space around a name, in pixels
constexpr QColor bandColor(0xEF, 0xF4, 0xFA);
constexpr QColor ruleColor(0xDD, 0xDD, 0xDD);
constexpr QColor shadeColor(0x00, 0x38, 0xB0);
constexpr Int32 previewTextSize = 11;   // pixels
constexpr Int32 previewLeftMargin = 2;  // pixels

String ShownText(Int32 index) { return ReplaceLineEndings(TemplatesManager::EquationText[index], EndOfLine); }

// One pixel wide, in shadeColor, more transparent from top to bottom.
QImage FadingShade(Int32 height) {
  constexpr double transparencyAtTop = 175;
  constexpr double transparencyAtBottom = 255;
  QImage shade(1, height, QImage::Format_ARGB32);
  for (Int32 y = 0; y < height; ++y) {
    const double t = static_cast<double>(y) / height;
    const int transparency = static_cast<int>(transparencyAtTop * (1 - t) + transparencyAtBottom * t);
    shade.setPixelColor(0, y, QColor(shadeColor.red(), shadeColor.green(), shadeColor.blue(), 255 - transparency));
  }
  return shade;
}

// The lines of `text`, wrapped at `width`, no more than `enough` of them. The layouts own the lines.
std::vector<QTextLine> WrappedLines(std::string_view text, const QFont& font, Int32 width, std::size_t enough,
                                    std::list<QTextLayout>& layouts) {
  std::vector<QTextLine> lines;
  QTextOption wrapping;
  wrapping.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  LineReader paragraphs(text);
  for (std::string_view paragraph; lines.size() < enough && paragraphs.Next(paragraph);) {
    const QString start = ToQString(Left(paragraph, width * static_cast<Int32>(enough)));
    QTextLayout& layout = layouts.emplace_back(start, font);
    layout.setTextOption(wrapping);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid() && lines.size() < enough; line = layout.createLine()) {
      line.setLineWidth(width);
      lines.push_back(line);
    }
    layout.endLayout();
  }
  return lines;
}

// Draws `text` (UTF-8, lines ended by EndOfLine) with the painter's font and pen, centred vertically in the cell. Wraps
// long lines. Draws only lines that the cell shows whole, and at least one.
void DrawPreview(CellGraphics& g, std::string_view text) {
  const QFontMetrics metrics = g.painter.fontMetrics();
  const Int32 pitch = std::max(metrics.lineSpacing(), 1);
  const Int32 wholeLines = std::max(g.Height / pitch, 1);
  std::list<QTextLayout> layouts;
  const std::vector<QTextLine> lines = WrappedLines(text, g.painter.font(), std::max(g.Width - previewLeftMargin, 1),
                                                    static_cast<std::size_t>(wholeLines), layouts);
  const Int32 height = pitch * static_cast<Int32>(lines.size());
  Int32 baseline = std::max((g.Height - height) / 2, 0) + metrics.ascent();
  for (const QTextLine& line : lines) {
    line.draw(&g.painter, QPointF(previewLeftMargin, baseline - line.y() - line.ascent()));
    baseline += pitch;
  }
}

}  // namespace

Hook<void(const winTemplates::Template* chosen)> winTemplates::OpenEquation;

winTemplates& winTemplates::Instance() {
  winTemplates* open = OpenWindow<winTemplates>();
  return open ? *open : *new winTemplates;
}

winTemplates::winTemplates() { Create(); }

void winTemplates::Layout() {
  setWindowTitle(tr("Template Chooser"));
  SetSizeLimits({540, 200}, {32000, 32000});
  SetWidth(600);
  SetHeight(400);
  SetPlacement(Placement::Centred);
}

void winTemplates::CreateControls() {
  constexpr Locks nearRight = Lock::Right | Lock::Bottom;
  constexpr Locks nearLeft = Lock::Left | Lock::Bottom;
  btnOK_ = CreateButton(tr("Choose"), {500, 371, 80, 20}, nearRight, &winTemplates::OpenSelection);
  SetDefaultButton(*btnOK_);
  btnCancel_ = CreateButton(tr("Cancel"), {408, 371, 80, 20}, nearRight, &winTemplates::btnCancel_Action);
  SetCancelButton(*btnCancel_);
  CreateList();
  tmrFocus_.SetPeriod(10);
  tmrFocus_.Action = [this](Timer&) { tmrFocus_Action(); };
  tmrFocus_.SetMode(TimerMode::Single);
  btnEdit_ = CreateButton(tr("Edit..."), {9, 373, 50, 18}, nearLeft, &winTemplates::btnEdit_Action);
  btnRename_ = CreateButton(tr("Rename"), {68, 373, 61, 18}, nearLeft, &winTemplates::btnRename_Action);
  btnDelete_ = CreateButton(tr("Delete"), {137, 373, 55, 18}, nearLeft, &winTemplates::btnDelete_Action);
  for (PushButton* button : {btnEdit_, btnRename_, btnDelete_}) button->SetTextSize(smallTextSize);
  SettupEditMode();
  RenameDialog_.Saved = [this](const NameProviderDialog& sender) { RenameDialog_Saved(sender); };
}

PushButton* winTemplates::CreateButton(const QString& caption, const QRect& bounds, Locks locks,
                                       void (winTemplates::*action)()) {
  auto* button = new PushButton(caption, Content());
  connect(button, &QPushButton::clicked, this, [this, action] { (this->*action)(); });
  AddControl(*button, bounds, locks);
  return button;
}

// Shrinks a large desktop font so that the names of the built-in templates fit.
void winTemplates::CreateList() {
  list_ = new Listbox(Content());
  list_->setAccessibleName(tr("Templates"));
  list_->RequiresSelection = true;
  list_->SetFirstColumnWidth(nameColumnWidth);
  list_->setFont(FittingFont(list_->font(), tr("Variables Example"), {nameColumnWidth - nameMargins, rowHeight}));
  list_->SetDefaultRowHeight(rowHeight);
  list_->Change = [this](Listbox&) { list_Change(); };
  list_->DoubleClick = [this](Listbox&) { OpenSelection(); };
  list_->CellBackgroundPaint = [this](CellGraphics& g, Int32 row, Int32 column) {
    return list_CellBackgroundPaint(g, row, column);
  };
  list_->CellTextPaint = [this](CellGraphics& g, Int32 row, Int32 column) {
    return list_CellTextPaint(g, row, column);
  };
  AddControl(*list_, {-1, -1, 602, 365}, Lock::Left | Lock::Top | Lock::Right | Lock::Bottom);
}

void winTemplates::AddMenuHandlers() {
  BindMenuHandler("EditUndo", [this] { return UndoDelete(); });
}

void winTemplates::Event_Open() {
  Preferences::TemplatesOpen = true;
  LoadList();
  list_->setFocus();
  SetupControls();
  storeChanges_ = TemplatesManager::NotifyOfChanges([this] { UpdateListFromTemplates(); });
}

void winTemplates::Event_EnableMenuItems(MenuBar& menuBar) {
  if (!deleted_.empty()) menuBar.Enable("EditUndo");
}

void winTemplates::SetupControls() {
  QRect bounds = list_->geometry();
  const int top = bounds.top();
  bounds.moveTop(-1);
  bounds.setHeight(bounds.height() + top);
  list_->setGeometry(bounds);
}

// Sets the focus with a delay, because the desktop may still change it during activation.
void winTemplates::Event_Activate() { tmrFocus_.SetMode(TimerMode::Single); }

// Waits while a mouse button is held down, because a button that loses the focus drops the click.
void winTemplates::tmrFocus_Action() {
  if (QGuiApplication::mouseButtons() == Qt::NoButton)
    list_->setFocus();
  else
    tmrFocus_.SetMode(TimerMode::Single);
}

// TemplatesOpen stays true when the program quits, so that the next start opens the chooser again.
bool winTemplates::Event_CancelClose(bool appQuitting) {
  if (!appQuitting) Preferences::TemplatesOpen = false;
  return false;
}

// Saves everything, because templates may have been renamed or deleted since the last save.
void winTemplates::Event_MouseEnter() { Preferences::Save(); }

void winTemplates::LoadList() {
  list_->DeleteAllRows();
  list_->AddRow("New Equation...", "");
  list_->SetListIndex(0);
  for (Int32 i = 0; i <= TemplatesManager::Key.Ubound(); ++i) list_->AddRow(TemplatesManager::Key[i], ShownText(i));
}

// Changes only the cells that differ, so that the selection, the edit mode and the scroll position stay. After a
// removal, selects the row that is now at the same position, or the last row.
void winTemplates::UpdateListFromTemplates() {
  const Int32 count = TemplatesManager::Key.Ubound() + 1;
  if (const Int32 selected = list_->ListIndex(); list_->ListCount() - 1 > count) {
    LoadList();
    list_->SetListIndex(std::min(count, selected));
    return;
  }
  for (Int32 i = 0; i < count; ++i) {
    const Int32 row = i + 1;
    if (row == list_->ListCount()) list_->AddRow("");
    if (list_->Cell(row, 0) != TemplatesManager::Key[i]) list_->SetCell(row, 0, TemplatesManager::Key[i]);
    if (list_->Cell(row, 1) != ShownText(i)) list_->SetCell(row, 1, ShownText(i));
  }
}

bool winTemplates::list_CellBackgroundPaint(CellGraphics& g, Int32 row, Int32 column) {
  const bool selected = row == list_->ListIndex();
  if (row % 2 == 0 && !selected) g.painter.fillRect(0, 0, g.Width, g.Height, bandColor);
  if (column > 0) g.painter.fillRect(0, 0, 1, g.Height, ruleColor);
  if (selected) {
    if (pOverlay.isNull()) pOverlay = FadingShade(g.Height);
    // Fills line by line, because scaling an image is much slower.
    for (Int32 y = 0; y < g.Height; ++y)
      g.painter.fillRect(0, y, g.Width, 1, pOverlay.pixelColor(0, y * pOverlay.height() / g.Height));
  }
  g.painter.setPen(Qt::black);  // on a pale background also where the row is selected
  return true;
}

bool winTemplates::list_CellTextPaint(CellGraphics& g, Int32 row, Int32 column) {
  if (column != 1) return false;
  QFont font = g.painter.font();
  font.setPixelSize(previewTextSize);
  g.painter.setFont(font);
  DrawPreview(g, list_->Cell(row, column));
  return true;
}

// Hides the chooser before the equation opens and closes it afterwards, so that the new window is in front.
void winTemplates::OpenSelection() {
  hide();
  const Int32 row = list_->ListIndex();
  if (row >= 1) {
    const Template chosen{list_->Cell(row, 0), ReplaceLineEndings(list_->Cell(row, 1), EndOfLine)};
    OpenEquation(&chosen);
  } else {
    OpenEquation(nullptr);
  }
  Close();
}

void winTemplates::btnCancel_Action() { Close(); }

void winTemplates::btnEdit_Action() {
  bEditMode = !bEditMode;
  SettupEditMode();
}

// Ends the edit mode, because the buttons apply to the row that was selected when it began.
void winTemplates::list_Change() {
  bEditMode = false;
  SettupEditMode();
}

// Moves the focus to the list first. When Qt hides or disables the button with the focus, it moves the focus along the
// tab order, in the end to "Choose".
void winTemplates::SettupEditMode() {
  const bool canEdit = list_->ListIndex() >= 1;
  if (!bEditMode && (btnRename_->hasFocus() || btnDelete_->hasFocus() || (btnEdit_->hasFocus() && !canEdit)))
    list_->setFocus();
  btnEdit_->setText(bEditMode ? tr("Done") : tr("Edit..."));
  if (!bEditMode) btnEdit_->setEnabled(canEdit);
  btnRename_->setVisible(bEditMode);
  btnDelete_->setVisible(bEditMode);
}

void winTemplates::btnRename_Action() {
  RenameDialog_.Text = list_->Cell(list_->ListIndex(), 0);
  RenameDialog_.Prompt = "Provide a new name for this Template:";
  RenameDialog_.ShowWithin(*this);
}

void winTemplates::RenameDialog_Saved(const NameProviderDialog& sender) {
  TemplatesManager::Rename(list_->ListIndex() - 1, sender.Text);
}

void winTemplates::btnDelete_Action() {
  const Int32 index = list_->ListIndex() - 1;
  deleted_.push_back({index, {TemplatesManager::Key[index], TemplatesManager::EquationText[index]}});
  TemplatesManager::Remove(index);
}

// Restores the last deleted template first, so that each returns to its position.
bool winTemplates::UndoDelete() {
  if (deleted_.empty()) return false;
  const auto [index, content] = std::move(deleted_.back());
  deleted_.pop_back();
  TemplatesManager::Insert(index, content.Name, content.Text);
  list_->SetListIndex(index + 1);
  return true;
}

void winTemplates::StoreRecord(KeyList& record) const { record.AddItem("template", BooleanToVariant(true)); }

}  // namespace sumlet
