// Uses a tree view without branches, because its keys, such as Home and End, are those of a list, unlike a table
// view's. The rows are in a model of plain text, because an item object for each cell would cost ten times the memory
// and time.
#include "framework/ui/listbox.h"

#include <QAbstractTableModel>
#include <QChar>
#include <QEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QImage>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QRect>
#include <QSize>
#include <QString>
#include <QTextDocument>
#include <QToolTip>
#include <QVariant>
#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

#include "framework/fault.h"
#include "framework/text/array.h"
#include "framework/ui/desktop.h"
#include "framework/ui/plain_style.h"
#include "framework/ui/qt_text.h"

namespace sumlet {
namespace {

constexpr int textMargin = 4;  // pixels, left and right of a text

// Replaces each line end, tab and control character by a blank. Does not collapse blanks.
QString OnOneLine(QString text) {
  for (QChar& c : text)
    if (c.isSpace() || c.category() == QChar::Other_Control) c = u' ';
  return text;
}

// Returns the part of `text` that can be visible in `width` pixels; every character is at least one pixel wide.
QString SeenLine(std::string_view text, int width) { return OnOneLine(ToQString(Left(text, width + 1))); }

int TextWidth(int cellWidth) { return std::max(cellWidth - 2 * textMargin, 0); }

}  // namespace

class Listbox::Rows final : public QAbstractTableModel {
 public:
  Rows(QObject* parent, Int32 columns) : QAbstractTableModel(parent), columns_(columns) {}

  [[nodiscard]] int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : Count(); }
  [[nodiscard]] int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : columns_; }

  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    // For screen readers and the search by typing. The list paints its cells itself.
    if (role == Qt::DisplayRole) return SpokenText(Cell(index.row(), index.column()));
    if (role == Qt::SizeHintRole && rowHeight >= 0) return QSize(1, rowHeight);
    return {};
  }

  [[nodiscard]] std::size_t Checked(Int32 column) const {
    if (column < 0 || column >= columns_) throw Fault("a column that does not exist");
    return static_cast<std::size_t>(column);
  }

  [[nodiscard]] Int32 ColumnCount() const { return columns_; }
  [[nodiscard]] Int32 Count() const { return rows_.Ubound() + 1; }
  [[nodiscard]] const String& Cell(Int32 row, Int32 column) const { return rows_[row][Checked(column)]; }

  void SetCell(Int32 row, Int32 column, String text) {
    rows_[row][Checked(column)] = std::move(text);
    emit dataChanged(index(row, column), index(row, column));
  }

  void Add(Row row) {
    beginInsertRows({}, Count(), Count());
    rows_.Append(std::move(row));
    endInsertRows();
  }

  void Clear() {
    beginResetModel();
    rows_.Redim(-1);
    endResetModel();
  }

  Int32 rowHeight = -1;

 private:
  Int32 columns_;
  Array<Row> rows_;
};

Listbox::Listbox(QWidget* parent, Int32 columnCount)
    : QTreeView(parent), rows_(new Rows(this, std::clamp(columnCount, 1, largestColumnCount))) {
  setModel(rows_);
  setFrameStyle(QFrame::Box | QFrame::Plain);
  setLineWidth(1);
  setPalette(PaperPalette());
  UseLightScrollBar(*this);
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setIndentation(0);
  setUniformRowHeights(true);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTextElideMode(Qt::ElideRight);
  setHeaderHidden(true);
  header()->setMinimumSectionSize(1);
  header()->setSectionResizeMode(0, QHeaderView::Fixed);
  header()->setSectionResizeMode(rows_->ColumnCount() - 1, QHeaderView::Stretch);
}

void Listbox::SetFirstColumnWidth(Int32 width) { header()->resizeSection(0, width); }

void Listbox::SetDefaultRowHeight(Int32 height) {
  rows_->rowHeight = height;
  scheduleDelayedItemsLayout();
}

void Listbox::SetColumnAlignment(Int32 column, ColumnAlignment alignment) {
  alignments_[rows_->Checked(column)] = alignment;
  viewport()->update();
}

Int32 Listbox::ColumnCount() const { return rows_->ColumnCount(); }

Int32 Listbox::ListCount() const { return rows_->Count(); }

void Listbox::SetListIndex(Int32 row) {
  if (row < -1 || row >= ListCount()) throw Fault("a row that does not exist");
  if (row == -1) clearSelection();
  setCurrentIndex(rows_->index(row, 0));
}

void Listbox::AddRow(String first, String second) { rows_->Add({std::move(first), std::move(second)}); }

void Listbox::DeleteAllRows() {
  rows_->Clear();
  UpdateListIndex(-1);  // a model reset clears the selection without a signal
}

const String& Listbox::Cell(Int32 row, Int32 column) const { return rows_->Cell(row, column); }

void Listbox::SetCell(Int32 row, Int32 column, String text) { rows_->SetCell(row, column, std::move(text)); }

// Styles may replace the palette and fill the area behind the rows in a colour of their own.
void Listbox::paintEvent(QPaintEvent* event) {
  QPainter(viewport()).fillRect(event->rect(), Qt::white);
  QTreeView::paintEvent(event);
}

void Listbox::drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const Int32 row = index.row();
  const bool selected = row == ListIndex();
  for (Int32 column = 0; column < ColumnCount(); ++column) {
    const QRect cell(columnViewportPosition(column), option.rect.y(), columnWidth(column), option.rect.height());
    if (cell.isEmpty()) continue;
    painter->save();
    painter->setClipRect(cell, Qt::IntersectClip);
    painter->translate(cell.topLeft());
    painter->setPen(selected ? Qt::white : Qt::black);
    CellGraphics g{*painter, cell.width(), cell.height()};
    painter->fillRect(0, 0, g.Width, g.Height, Qt::white);
    const bool backgroundDrawn = CellBackgroundPaint && CellBackgroundPaint(g, row, column);
    if (!backgroundDrawn && selected) painter->fillRect(0, 0, g.Width, g.Height, SelectionColor);
    if (!CellTextPaint || !CellTextPaint(g, row, column)) DrawText(g, row, column);
    painter->restore();
  }
}

// Draws one line, and ends it in "…" if it is too long.
void Listbox::DrawText(CellGraphics& g, Int32 row, Int32 column) const {
  const String& text = Cell(row, column);
  if (text.empty()) return;
  const QRect space(textMargin, 0, TextWidth(g.Width), g.Height);
  const QString line = SeenLine(text, g.Width);
  const QString shown = g.painter.fontMetrics().elidedText(line, textElideMode(), space.width());
  const Qt::Alignment side =
      alignments_[rows_->Checked(column)] == ColumnAlignment::Right ? Qt::AlignRight : Qt::AlignLeft;
  g.painter.drawText(space, side | Qt::AlignVCenter | Qt::TextSingleLine, shown);
}

// Whether the list itself draws the text of the cell and has to cut it. Only the handler's result tells who draws, so
// this runs the handler on an image that is discarded.
bool Listbox::IsCut(const QModelIndex& cell) const {
  const int width = columnWidth(cell.column());
  QImage unseen(1, 1, QImage::Format_RGB32);
  QPainter painter(&unseen);
  CellGraphics g{painter, width, 1};
  if (CellTextPaint && CellTextPaint(g, cell.row(), cell.column())) return false;
  const QString line = SeenLine(Cell(cell.row(), cell.column()), width);
  return fontMetrics().horizontalAdvance(line) > TextWidth(width);
}

bool Listbox::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTreeView::viewportEvent(event);
  ShowToolTip(static_cast<const QHelpEvent&>(*event));
  return true;
}

// Uses rich text, because a tool tip wraps only that.
void Listbox::ShowToolTip(const QHelpEvent& event) {
  const QModelIndex cell = indexAt(event.pos());
  if (cell.isValid() && IsCut(cell))
    QToolTip::showText(event.globalPos(), Qt::convertFromPlainText(AlertText(Cell(cell.row(), cell.column()))),
                       viewport(), visualRect(cell));
  else
    QToolTip::hideText();
}

void Listbox::mouseDoubleClickEvent(QMouseEvent* event) {
  QTreeView::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton && indexAt(event->pos()).isValid() && DoubleClick) DoubleClick(*this);
}

void Listbox::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTreeView::selectionChanged(selected, deselected);
  const QModelIndexList indexes = selectionModel()->selectedRows();
  UpdateListIndex(indexes.isEmpty() ? -1 : indexes.first().row());
}

void Listbox::UpdateListIndex(Int32 row) {
  if (std::exchange(listIndex_, row) != row && Change) Change(*this);
}

// In Qt, a click with Ctrl would deselect the row.
QItemSelectionModel::SelectionFlags Listbox::selectionCommand(const QModelIndex& index, const QEvent* event) const {
  const QItemSelectionModel::SelectionFlags command = QTreeView::selectionCommand(index, event);
  const bool takesAway = !index.isValid() || command.testFlag(QItemSelectionModel::Deselect);
  return event && RequiresSelection && takesAway ? QItemSelectionModel::NoUpdate : command;
}

}  // namespace sumlet
