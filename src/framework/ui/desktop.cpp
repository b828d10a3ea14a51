#include "framework/ui/desktop.h"

#include <QApplication>
#include <QByteArray>
#include <QChar>
#include <QClipboard>
#include <QDesktopServices>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QUrl>

#include "framework/desktop.h"
#include "framework/ui/qt_text.h"
#include "framework/ui/window.h"

namespace sumlet {
namespace {

constexpr qsizetype mostCharacters = 1000;
constexpr qsizetype mostLines = 20;
constexpr qsizetype longestWord = 40;  // characters; about a line of the narrowest alert

QString Cut(const QString& text) {
  qsizetype lines = 1;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const bool full = text[i] == u'\n' && ++lines > mostLines;
    if (!full && i < mostCharacters) continue;
    const bool insidePair = i > 0 && text[i - 1].isHighSurrogate();
    return text.left(insidePair ? i - 1 : i).trimmed() + u'…';
  }
  return text;
}

// A zero-width space allows an invisible line break.
QString WithBreaks(const QString& text) {
  QString broken;
  qsizetype word = 0;
  for (const QChar c : text) {
    word = c.isSpace() ? 0 : word + 1;
    if (word > longestWord && !c.isLowSurrogate() && !c.isMark()) {
      broken += QChar(0x200B);
      word = 1;
    }
    broken += c;
  }
  return broken;
}

// Returns the front window, so that the user sees the alert. A window that has just opened is in front before it is
// active.
QWidget* AlertParent() {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  if (WindowCount() > 0 && WindowAt(0).isVisible()) return &WindowAt(0);
  return QApplication::activeWindow();
}

// The parent window owns the alert and may be destroyed while the alert is open.
QPointer<QMessageBox> NewAlert(QMessageBox::Icon icon, std::string_view text) {
  QPointer<QMessageBox> alert = new QMessageBox(AlertParent());
  alert->setIcon(icon);
  alert->setWindowTitle(QStringLiteral("Sumlet"));
  alert->setTextFormat(Qt::PlainText);
  alert->setText(AlertText(text));
  return alert;
}

// The text format of a message box applies to its message only; it would interpret a file name here as markup.
void SetExplanation(QMessageBox& alert, std::string_view text) {
  if (text.empty()) return;
  alert.setInformativeText(QStringLiteral(" "));
  if (auto* label = alert.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel")))
    label->setTextFormat(Qt::PlainText);
  alert.setInformativeText(AlertText(text));
  const QString whole = ToQString(text);
  if (Cut(whole) != whole) alert.setDetailedText(whole);  // behind a button
}

void ShowMessage(std::string_view text) {
  const QPointer<QMessageBox> alert = NewAlert(QMessageBox::Warning, text);
  alert->setStandardButtons(QMessageBox::Ok);
  alert->exec();
  delete alert;
}

DialogButton ShowQuestion(const MessageDialog& dialog) {
  const bool isQuestion = dialog.CancelButton || !dialog.AlternateActionButton.empty();
  const QPointer<QMessageBox> alert =
      NewAlert(isQuestion ? QMessageBox::Question : QMessageBox::Warning, dialog.Message);
  SetExplanation(*alert, dialog.Explanation);
  QPushButton* action = alert->addButton(ToQString(dialog.ActionButton), QMessageBox::AcceptRole);
  alert->setDefaultButton(action);
  if (dialog.CancelButton) alert->setEscapeButton(alert->addButton(QMessageBox::Cancel));
  const QAbstractButton* alternate =
      dialog.AlternateActionButton.empty()
          ? nullptr
          : alert->addButton(ToQString(dialog.AlternateActionButton), QMessageBox::ActionRole);
  alert->exec();
  const QAbstractButton* pressed = alert ? alert->clickedButton() : nullptr;
  DialogButton answer = DialogButton::Cancel;
  if (pressed && pressed == action) answer = DialogButton::Action;
  if (pressed && pressed == alternate) answer = DialogButton::Alternate;
  delete alert;
  return answer;
}

// The tolerant mode would encode a stray percent sign and so open another page.
void OpenInBrowser(std::string_view address) {
  const QByteArray bytes(address.data(), static_cast<qsizetype>(address.size()));
  const QUrl url = QUrl::fromEncoded(bytes, QUrl::StrictMode);
  if (url.isValid() && !url.isRelative()) QDesktopServices::openUrl(url);
}

}  // namespace

QString AlertText(std::string_view text) {
  QString shown = ToQString(text);
  shown.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  for (QChar& c : shown)
    if (c == u'\r' || c == QChar::ParagraphSeparator || c == QChar::LineSeparator)
      c = u'\n';
    else if (c.category() == QChar::Other_Control && c != u'\n')
      c = u' ';
  return WithBreaks(Cut(shown));
}

std::vector<HookGuard> InstallDesktop() {
  return {MsgBox.Set(ShowMessage), ShowDialog.Set(ShowQuestion), ShowURL.Set(OpenInBrowser),
          ClipboardText.Set([] { return QGuiApplication::clipboard()->text().toStdString(); }),
          SetClipboardText.Set([](std::string_view text) { QGuiApplication::clipboard()->setText(ToQString(text)); })};
}

}  // namespace sumlet
