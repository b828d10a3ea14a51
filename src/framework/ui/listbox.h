// Listbox: a list of rows with one or two columns and at most one selected row.
//
// The list is black on white regardless of the desktop's colours, and uses the desktop's font. It has a border of one
// pixel inside its bounds, and no headings, grid lines or focus mark. The vertical scroll bar appears when needed. The
// last column takes the remaining width. If the list has to cut the text of a cell, a tool tip shows the whole text.
//
// Rows and columns are 0-based. An index out of range throws a Fault and changes nothing. Texts are UTF-8 and are kept
// byte for byte. The list draws only the visible part of a text, so it stays fast with many rows and long texts.
#pragma once

#include <QItemSelectionModel>
#include <QTreeView>
#include <array>
#include <functional>

#include "framework/text/text.h"

namespace sumlet {

// The painter and the size in pixels of a cell being drawn. The origin is the cell's top left corner, and the painter
// clips to the cell.
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

  // If true, the user can select another row but cannot clear the selection. The program can clear it.
  bool RequiresSelection = false;

  // Sets the width of the first of two columns, in pixels.
  void SetFirstColumnWidth(Int32 width);
  // Columns are initially aligned left. A text that does not fit is cut at its end with either alignment.
  void SetColumnAlignment(Int32 column, ColumnAlignment alignment);
  // Sets the height of all rows, in pixels. -1, the default, makes rows as high as a line of text.
  void SetDefaultRowHeight(Int32 height);

  [[nodiscard]] Int32 ListCount() const;
  // The selected row, or -1. SetListIndex also scrolls to the row.
  [[nodiscard]] Int32 ListIndex() const { return listIndex_; }
  void SetListIndex(Int32 row);

  void AddRow(String first, String second = {});
  void DeleteAllRows();
  [[nodiscard]] const String& Cell(Int32 row, Int32 column) const;
  void SetCell(Int32 row, Int32 column, String text);

  // Runs after the user or the program has changed ListIndex.
  std::function<void(Listbox& sender)> Change;
  // Runs after a double click with the left button on a row, which is then selected.
  std::function<void(Listbox& sender)> DoubleClick;
  // Draw the background and the text of one cell, and return true. Beforehand the list fills the cell with white and
  // sets the pen to black, or to white in a selected row. If a handler is missing or returns false, the list fills a
  // selected row with blue, or draws the text with the present pen.
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
  void UpdateListIndex(Int32 row);

  Rows* rows_;
  std::array<ColumnAlignment, largestColumnCount> alignments_ = {ColumnAlignment::Left, ColumnAlignment::Left};
  Int32 listIndex_ = -1;
};

}  // namespace sumlet
