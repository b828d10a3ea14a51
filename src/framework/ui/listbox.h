// Listbox: a list of rows with one or two columns and at most one selected row.
//
// Black on white regardless of the desktop's colours, in the desktop's font, with a border of one pixel inside its
// bounds, without headings, grid lines or a focus mark. A vertical scroll bar shows when needed. The last column takes
// the remaining width. A tool tip shows the whole text of a cell that the list draws and has to cut.
//
// Rows and columns are 0-based. An index out of range throws a Fault and changes nothing. Texts are UTF-8 and are kept
// byte for byte. Drawing reads only the visible part of a text, so that any number of rows and any length is fast.
#pragma once

#include <QItemSelectionModel>
#include <QTreeView>
#include <array>
#include <functional>

#include "framework/text/text.h"

namespace sumlet {

// What a cell is drawn with. The origin is the cell's top left corner; outside the cell nothing can be drawn. Sizes in
// pixels.
struct CellGraphics {
  QPainter& painter;
  Int32 Width;
  Int32 Height;
};

enum class ColumnAlignment { Left = 1, Right = 3 };

class Listbox : public QTreeView {
 public:
  static constexpr Int32 largestColumnCount = 2;

  explicit Listbox(QWidget* parent, Int32 columnCount = largestColumnCount);

  [[nodiscard]] Int32 ColumnCount() const;

  // The user can select another row but cannot deselect. The program can.
  bool RequiresSelection = false;

  // In pixels; of the first of two columns.
  void SetFirstColumnWidth(Int32 width);
  // At start every column is aligned left. A text that does not fit is cut at its end either way.
  void SetColumnAlignment(Int32 column, ColumnAlignment alignment);
  // In pixels; -1, as at start, is the height of a line of text. Holds for all rows.
  void SetDefaultRowHeight(Int32 height);

  [[nodiscard]] Int32 ListCount() const;
  // The selected row, -1 for none. The row selected by the program is scrolled into sight.
  [[nodiscard]] Int32 ListIndex() const { return listIndex_; }
  void SetListIndex(Int32 row);

  void AddRow(String first, String second = {});
  void DeleteAllRows();
  [[nodiscard]] const String& Cell(Int32 row, Int32 column) const;
  void SetCell(Int32 row, Int32 column, String text);

  // Runs after the user or the program has changed ListIndex.
  std::function<void(Listbox& sender)> Change;
  // Runs after a double click on a row with the left button; the row is selected.
  std::function<void(Listbox& sender)> DoubleClick;
  // Draw the background and the text of one cell. False leaves the drawing to the list, the text in the colour that the
  // painter's pen has then. Where there is no handler the list draws, a selected row white on blue. The cell is white
  // before either runs.
  std::function<bool(CellGraphics& g, Int32 row, Int32 column)> CellBackgroundPaint;
  std::function<bool(CellGraphics& g, Int32 row, Int32 column)> CellTextPaint;

 protected:
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                                     const QEvent* event) const override;
  bool viewportEvent(QEvent* event) override;

 private:
  using Row = std::array<String, largestColumnCount>;
  class Rows;

  void DrawText(CellGraphics& g, Int32 row, Int32 column) const;
  [[nodiscard]] bool IsCut(const QModelIndex& cell) const;
  void ShowToolTip(const QHelpEvent& event);
  void TakeListIndex(Int32 row);

  Rows* rows_;
  std::array<ColumnAlignment, largestColumnCount> alignments_ = {ColumnAlignment::Left, ColumnAlignment::Left};
  Int32 listIndex_ = -1;
};

}  // namespace sumlet
