#include "templates/win_templates.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>

#include "framework/ui/manual_clock.h"
#include "persistence/preferences.h"
#include "templates/templates_manager.h"
#include "templates/win_save.h"

namespace sumlet {
namespace {

class WinTemplates : public testing::Test {
 protected:
  WinTemplates() {
    qputenv("XDG_DATA_HOME", folder.path().toUtf8());
    TemplatesManager::Key = {"one", "two", "three"};
    TemplatesManager::EquationText = {"1", "2\r\n2", "3"};
    Preferences::TemplatesOpen = false;
    winTemplates::OpenEquation = [this](const winTemplates::Template* chosen) {
      opened += chosen ? chosen->Name + "=" + chosen->Text : "empty";
      opened += chooser->isVisible() ? ", seen;" : Preferences::TemplatesOpen ? ", hidden;" : ", closed;";
    };
    Open();
  }
  ~WinTemplates() override {
    if (chooser) chooser->Close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    winTemplates::OpenEquation = nullptr;
  }
  void Open() {
    chooser = &winTemplates::Instance();
    chooser->activateWindow();
    QCoreApplication::processEvents();
  }
  [[nodiscard]] std::string Keys() const {
    std::string keys;
    for (const String& key : TemplatesManager::Key) keys += key + " ";
    return keys;
  }
  // What the buttons say: the edit button, dimmed in parentheses, and the others while they show.
  [[nodiscard]] std::string Buttons() const {
    const std::string edit = chooser->btnEdit().text().toStdString();
    std::string buttons = chooser->btnEdit().isEnabled() ? edit : "(" + edit + ")";
    for (const PushButton* button : {&chooser->btnRename(), &chooser->btnDelete()})
      if (button->isVisible()) buttons += " " + button->text().toStdString();
    return buttons;
  }

  QTemporaryDir folder;
  std::string opened;
  ManualClock clock;
  QPointer<winTemplates> chooser;
};

TEST_F(WinTemplates, OpensWithItsList) {
  EXPECT_TRUE(Preferences::TemplatesOpen);
  ASSERT_EQ(chooser->list().ListCount(), 4);
  EXPECT_EQ(chooser->list().ListIndex(), 0);
  EXPECT_EQ(chooser->list().Cell(0, 0) + "|" + chooser->list().Cell(0, 1), "New Equation...|");
  EXPECT_EQ(chooser->list().Cell(2, 0) + "|" + chooser->list().Cell(2, 1), "two|2\n2");
  EXPECT_EQ(Buttons(), "(Edit...)");
  EXPECT_EQ(&winTemplates::Instance(), chooser.data());
  KeyList record;
  record.BinaryFormat = true;
  chooser->StoreRecord(record);
  EXPECT_EQ(record.GetItem("template"), "True");

  chooser->SetWidth(700);
  chooser->SetHeight(1);
  EXPECT_EQ(chooser->list().geometry(), QRect(-1, -1, 702, 164)) << "one pixel outside, and not lower than 200";
  EXPECT_EQ(chooser->btnOK().geometry(), QRect(600, 171, 80, 20));
  EXPECT_EQ(chooser->btnRename().geometry(), QRect(68, 173, 61, 18));
}

TEST_F(WinTemplates, OpensTheChosenAndCloses) {
  using Step = void (*)(winTemplates&);
  const Step choose = [](winTemplates& w) { w.btnOK().click(); };
  const struct {
    Int32 row;
    Step step;
    const char* opened;
  } rows[] = {
      {0, choose, "empty, hidden;"},
      {2, choose, "two=2\n2, hidden;"},
      {1, [](winTemplates& w) { QTest::keyClick(&w.list(), Qt::Key_Return); }, "one=1, hidden;"},
      {3,
       [](winTemplates& w) {
         QTest::mouseDClick(w.list().viewport(), Qt::LeftButton, {}, {9, 90});
       },
       "one=1, hidden;"},
      {1, [](winTemplates& w) { QTest::keyClick(&w.list(), Qt::Key_Escape); }, ""},
      {1, [](winTemplates& w) { w.btnCancel().click(); }, ""},
  };
  for (const auto& row : rows) {
    Open();
    chooser->list().SetListIndex(row.row);
    row.step(*chooser);
    EXPECT_EQ(opened, row.opened);
    EXPECT_EQ(WindowCount(), 0);
    EXPECT_FALSE(Preferences::TemplatesOpen);
    opened.clear();
  }
  const winTemplates* closed = chooser;
  EXPECT_NE(&winTemplates::Instance(), closed) << "the next request makes a new one";
  Open();
  chooser->Close(true);
  EXPECT_TRUE(Preferences::TemplatesOpen) << "open at the end of the program";
}

TEST_F(WinTemplates, EditModeEndsWithTheSelectionAndDeletes) {
  const struct {
    char step;  // a row is selected, or Edit or Delete is pressed
    const char* buttons;
    const char* keys;
    Int32 selected;
  } rows[] = {
      {'1', "Edit...", "one two three ", 1},
      {'E', "Done Rename Delete", "one two three ", 1},
      {'2', "Edit...", "one two three ", 2},
      {'E', "Done Rename Delete", "one two three ", 2},
      {'E', "Edit...", "one two three ", 2},
      {'E', "Done Rename Delete", "one two three ", 2},
      {'0', "(Edit...)", "one two three ", 0},
      {'2', "Edit...", "one two three ", 2},
      {'D', "Edit...", "one three ", 2},  // the row that stands there now
      {'D', "Edit...", "one ", 1},        // the last row
      {'D', "(Edit...)", "", 0},
  };
  for (const auto& row : rows) {
    if (row.step == 'E')
      chooser->btnEdit().click();
    else if (row.step == 'D')
      chooser->btnDelete().click();
    else
      chooser->list().SetListIndex(row.step - '0');
    EXPECT_EQ(Buttons(), row.buttons) << row.step;
    EXPECT_EQ(Keys(), row.keys) << row.step;
    EXPECT_EQ(chooser->list().ListIndex(), row.selected) << row.step;
    EXPECT_EQ(chooser->list().ListCount(), TemplatesManager::EquationText.Ubound() + 2) << row.step;
  }
}

TEST_F(WinTemplates, Renames) {
  chooser->list().SetListIndex(2);
  chooser->btnEdit().click();
  for (const auto key : {Qt::Key_Escape, Qt::Key_Return}) {
    chooser->btnRename().click();
    auto* sheet = dynamic_cast<winSave*>(&WindowAt(0));
    ASSERT_TRUE(sheet);
    EXPECT_EQ(sheet->textName().text(), "two");
    sheet->textName().setText("one");
    QTest::keyClick(&sheet->textName(), key);
  }
  EXPECT_EQ(Keys(), "one one three ") << "two of one name are fine";
  EXPECT_EQ(chooser->list().Cell(2, 0), "one");
  EXPECT_EQ(Buttons(), "Done Rename Delete");
}

TEST_F(WinTemplates, GivesTheListTheFocusWhenActivated) {
  clock.Advance(10);
  chooser->list().SetListIndex(1);
  chooser->btnEdit().setFocus();
  QEvent activated(QEvent::WindowActivate);
  QCoreApplication::sendEvent(chooser, &activated);
  // while the user holds a button down, it keeps the focus, or the click would be lost
  const QPoint onEdit = chooser->btnEdit().mapTo(chooser, QPoint(9, 9));
  QTest::mousePress(chooser->windowHandle(), Qt::LeftButton, {}, onEdit);
  clock.Advance(100);
  EXPECT_TRUE(chooser->btnEdit().hasFocus());
  QTest::mouseRelease(chooser->windowHandle(), Qt::LeftButton, {}, onEdit);
  EXPECT_TRUE(chooser->bEditMode);
  clock.Advance(10);
  EXPECT_TRUE(chooser->list().hasFocus());
}

TEST_F(WinTemplates, SavesWhenThePointerComesIn) {
  const auto stored = [] { return Preferences::GetPrefFile(true)->ReadBinaryFile().has_value(); };
  ASSERT_FALSE(stored());
  QEnterEvent entered({5, 5}, {5, 5}, {5, 5});
  QCoreApplication::sendEvent(chooser, &entered);
  EXPECT_TRUE(stored());
}

// The first and last row of pixels in which something dark is drawn, relative to the top of `cell`.
std::pair<int, int> InkOf(const QImage& picture, const QRect& cell) {
  std::pair<int, int> rows{-1, -1};
  for (int y = 0; y < cell.height(); ++y)
    for (int x = cell.x(); x < cell.x() + cell.width(); ++x) {
      if (qGray(picture.pixel(x, cell.y() + y)) > 90) continue;
      if (rows.first < 0) rows.first = y;
      rows.second = y;
    }
  return rows;
}

TEST_F(WinTemplates, DrawsBandsRulesAndTheFadingShade) {
  const QPalette bright = QApplication::palette();
  chooser->list().SetListIndex(1);
  for (const QPalette& desktop : {bright, QPalette(QColor(0x30, 0x30, 0x30))}) {
    QApplication::setPalette(desktop);
    const QImage picture = chooser->list().viewport()->grab().toImage();
    const auto at = [&](int x, int y) { return picture.pixelColor(x, y).name(); };
    EXPECT_EQ(at(199, 59), "#eff4fa");
    EXPECT_EQ(at(200, 59), "#dddddd") << "the rule at the edge of the cell";
    EXPECT_EQ(at(199, 60), "#afafaf") << "175 at the top of the selected row";
    EXPECT_EQ(at(590, 90), "#d7d7d7") << "215 in the middle";
    EXPECT_EQ(at(590, 119), "#fdfdfd") << "nearly nothing at the bottom";
    EXPECT_EQ(at(590, 190), "#ffffff");
    for (int row = 0; row < 4; ++row) EXPECT_GT(InkOf(picture, {0, 60 * row, 200, 60}).first, 0) << "a name";
    EXPECT_GT(InkOf(picture, {201, 60, 300, 60}).first, 0) << "a preview";
  }
  QApplication::setPalette(bright);
}

TEST_F(WinTemplates, PreviewIsCentredAndCut) {
  const String longLine = "words and words and words and words and words and words and words and words and words";
  const struct {
    const char* name;
    String text;
    int first, last;  // rows of pixels with ink, of 60
    int tolerance;    // what fonts differ in
  } rows[] = {
      {"one line", "HHH", 25, 35, 6},
      {"two lines", "HHH\nHHH", 16, 44, 7},
      {"wrapped", longLine, 16, 44, 7},
      {"cut", "HHH\nHHH\nHHH\nHHH\nHHH\nHHH", 4, 59, 4},
      {"a megabyte", String(1'000'000, 'H'), 4, 59, 4},
      {"blank", " \n\n", -1, -1, 0},
      {"tabs, markup and no UTF-8", "\t<br>\xFF&amp;", 25, 35, 9},
  };
  for (const auto& row : rows) {
    TemplatesManager::EquationText[0] = row.text;
    chooser->LoadList();
    const auto [first, last] = InkOf(chooser->list().viewport()->grab().toImage(), {202, 60, 380, 60});
    EXPECT_NEAR(first, row.first, row.tolerance) << row.name;
    EXPECT_NEAR(last, row.last, row.tolerance) << row.name;
  }
}

}  // namespace
}  // namespace sumlet
