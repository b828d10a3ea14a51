// The toolkit reports the active window but not the order of the others, and not every desktop lets programs read it.
// So this file keeps a list: each activation moves a window to its front.
#include "framework/ui/window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QEvent>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLayout>
#include <QMenuBar>
#include <QMetaObject>
#include <QMoveEvent>
#include <QPushButton>
#include <QResizeEvent>
#include <QScopedValueRollback>
#include <QScreen>
#include <QString>
#include <QVBoxLayout>
#include <QWindowStateChangeEvent>
#include <algorithm>
#include <optional>
#include <utility>

#include "framework/text/array.h"

namespace sumlet {
namespace {

// Outlives whatever main() creates, which may still read it when the process exits.
Array<Window*> openWindows;

int singleActivations = 0;

void EraseFromList(const Window* window) {
  for (Int32 i = openWindows.Ubound(); i >= 0; --i)
    if (openWindows[i] == window) openWindows.Remove(i);
}

void RemoveFromList(const Window* window) {
  const Int32 before = WindowCount();
  EraseFromList(window);
  if (WindowCount() != before) WindowListChanged();
}

void MoveToFront(Window* window) {
  const Int32 before = WindowCount();
  EraseFromList(window);
  openWindows.Insert(0, window);
  if (WindowCount() != before) WindowListChanged();
}

// Returns the screen of the pointer. With a single screen, does not ask the desktop, which would take time for
// each window of a session.
const QScreen* CurrentScreen() {
  if (QGuiApplication::screens().size() == 1) return QGuiApplication::primaryScreen();
  const QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
  return screen ? screen : QGuiApplication::primaryScreen();
}

// On Wayland a window does not know its position.
bool CanReadPosition() { return !QGuiApplication::platformName().startsWith(QLatin1String("wayland")); }

}  // namespace

Hook<void(Window& window)> AttachMenus;
Hook<void()> WindowListChanged;

Int32 WindowCount() { return openWindows.Ubound() + 1; }
Window& WindowAt(Int32 index) { return *openWindows[index]; }

SingleActivation::SingleActivation() { ++singleActivations; }

SingleActivation::~SingleActivation() {
  if (--singleActivations == 0 && WindowCount() > 0) WindowAt(0).Show();
}

Window::Window() : content_(new QWidget) {
  layout_ = new QVBoxLayout(this);  // calls back into the window, so all members must be initialised
  setAttribute(Qt::WA_DeleteOnClose);
  layout_->setContentsMargins(0, 0, 0, 0);
  // The limits of the window are those of the content, with the menu bar on top.
  layout_->setSizeConstraint(QLayout::SetMinAndMaxSize);
  layout_->addWidget(content_);
  MoveToFront(this);
}

Window::~Window() { RemoveFromList(this); }

void Window::Create(bool visible) {
  Layout();
  AttachMenus(*this);
  if (placement_ == Placement::Staggered) Stagger();
  if (placement_ == Placement::Centred) Centre();
  CreateControls();
  AddMenuHandlers();
  Event_Open();
  created_ = true;
  if (visible && frame_ != Frame::Sheet) ComeUp();
}

void Window::ComeUp() {
  setAttribute(Qt::WA_ShowWithoutActivating, singleActivations > 0);
  show();
}

void Window::Show() {
  if (closed_) return;
  MoveToFront(this);
  if (isMinimized()) setWindowState(windowState() & ~Qt::WindowMinimized);
  ComeUp();
  raise();
  if (singleActivations == 0) activateWindow();
}

// The parent owns the sheet, and the desktop keeps it above the parent.
void Window::ShowWithin(Window& parent) {
  setParent(&parent, Qt::Sheet | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
  setWindowModality(Qt::WindowModal);
  const QRect parentContent(parent.content_->mapToGlobal(QPoint(0, 0)), parent.content_->size());
  move(SheetCorner(size(), parentContent, parent.screen()->availableGeometry()));
  Show();
}

Window* Window::Sheet() const {
  for (QObject* child : children())
    if (auto* sheet = dynamic_cast<Window*>(child); sheet && sheet->isVisible()) return sheet;
  return nullptr;
}

void Window::SetDefaultButton(QPushButton& button) {
  button.setDefault(true);
  defaultButton_ = &button;
}

bool Window::Close(bool appQuitting) {
  const QScopedValueRollback quitting(appQuitting_, appQuitting);
  return close();
}

// Some window managers leave and enter full screen once more, with other bounds, if the window was maximised. So this
// records the bounds beforehand.
void Window::ToggleFullScreen(std::optional<QRect> windowedBounds) {
  constexpr int togglingTime = 1000;  // ms
  if (windowedBounds)
    boundsBeforeToggle_ = *windowedBounds;
  else if (toggling_.hasExpired())
    boundsBeforeToggle_ = WindowedBounds();
  toggling_.setRemainingTime(togglingTime);
  setWindowState(windowState() ^ Qt::WindowFullScreen);
}

QRect Window::WindowedBounds() const {
  if (!isFullScreen()) return {Left(), Top(), Width(), Height()};
  if (!toggling_.hasExpired()) return boundsBeforeToggle_;
  const QRect bounds = normalGeometry();
  const QPoint corner = CanReadPosition() ? bounds.topLeft() - frameOffset_ : corner_;
  return {corner, QSize(bounds.width(), bounds.height() - MenuBarHeight(bounds.width()))};
}

void Window::SetFixed(const QSize& size) {
  setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                 Qt::WindowCloseButtonHint);
  SetMenuBarVisible(false);
  SetMinimizeButton(false);
  SetSizeLimits(size, size);
  ResizeContent(size.width(), size.height());
  SetPlacement(Placement::Centred);
}

void Window::SetMenuBar(QMenuBar* bar) {
  const QSize content(Width(), Height());
#if !defined(Q_OS_MACOS)
  bar->setNativeMenuBar(false);  // in the window, whatever the desktop offers
#endif
  layout_->setMenuBar(bar);
  ResizeContent(content.width(), content.height());
}

bool Window::HandleCommand(const std::string& name) {
  const auto handler = handlers_.find(name);
  return handler != handlers_.end() && handler->second();
}

void Window::SetSizeLimits(const QSize& smallest, const QSize& largest) {
  content_->setMinimumSize(smallest);
  content_->setMaximumSize(largest);
}

void Window::AddControl(QWidget& control, const QRect& bounds, Locks locks) {
  control.setGeometry(bounds);
  lockedControls_.push_back({&control, locks});
}

Int32 Window::MenuBarHeight(Int32 width) const {
  const QWidget* bar = layout_->menuBar();
  return bar && !bar->isHidden() ? bar->heightForWidth(width) : 0;
}

// Desktops use 16 bits for positions. Only damaged files contain numbers far beyond them.
void Window::MoveTo(Int32 left, Int32 top) {
  constexpr Int32 farthest = 32767;
  corner_ = {std::clamp(left, -farthest, farthest), std::clamp(top, -farthest, farthest)};
  move(corner_);
}

QPoint Window::Corner() const { return CanReadPosition() ? pos() : corner_; }

// No desktop is as large as these limits. A damaged file may contain more, and the picture of such a window would fill
// the memory.
void Window::ResizeContent(Int32 width, Int32 height) {
  constexpr Int32 longest = 16384;
  constexpr Int32 mostPixels = 1 << 26;
  width = std::min(width, longest);
  height = std::min(height, std::min(longest, mostPixels / std::max(width, 1)));
  layout_->activate();  // brings the window's limits up to date
  resize(width, height + MenuBarHeight(width));
  FollowSize();  // a hidden window receives no resize event until it shows
}

void Window::FollowSize() {
  const QSize now(Width(), Height());
  const QSize before = std::exchange(contentSize_, now);
  if (now == before) return;
  for (const auto& [control, locks] : lockedControls_)
    if (control) control->setGeometry(LockedBounds(control->geometry(), before, now, locks));
  if (created_) Event_Resized();
}

void Window::Stagger() {
  static std::optional<QPoint> previous;
  const QScreen* screen = CurrentScreen();
  if (!screen) return;
  // The frame's size is unknown before the window shows. Assumes a title bar as high as the step.
  const QSize frame(width(), height() + StaggerStep);
  std::vector<QPoint> taken;
  for (Int32 i = 0; i < WindowCount(); ++i)
    if (&WindowAt(i) != this) taken.push_back(WindowAt(i).WindowedBounds().topLeft());
  previous = StaggeredCorner(frame, screen->availableGeometry(), previous, taken);
  MoveTo(previous->x(), previous->y());
}

// On a small screen a window is made smaller as far as its limits allow.
void Window::Centre() {
  const QScreen* screen = CurrentScreen();
  if (!screen) return;
  constexpr int lowerBorder = 8;
  const QRect space = screen->availableGeometry();
  resize(size().boundedTo(space.size() - QSize(0, StaggerStep + lowerBorder)));
  FollowSize();
  move(CentredCorner({width(), height() + StaggerStep}, space));
}

// A closed window lives until control returns to the event loop, and may still receive activation and pointer events.
bool Window::event(QEvent* event) {
  // A control may raise events while it is destroyed, for example when it loses the focus and the input method commits
  // its text. The handlers use members of the derived class, so the controls are destroyed first.
  if (event->type() == QEvent::DeferredDelete) delete content_;
  if (closed_) return QWidget::event(event);
  if (event->type() == QEvent::WindowActivate) {
    MoveToFront(this);
    setAttribute(Qt::WA_KeyboardFocusChange);  // shows the focus immediately, not only after Tab
    if (Window* sheet = Sheet())
      sheet->Show();  // the sheet blocks this window
    else
      Event_Activate();
  } else if (event->type() == QEvent::Enter) {
    Event_MouseEnter();
  }
  return QWidget::event(event);
}

void Window::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange) return;
  const Qt::WindowStates before = static_cast<QWindowStateChangeEvent*>(event)->oldState();
  const auto gained = [&](Qt::WindowState state) { return !(before & state) && (windowState() & state); };
  const auto lost = [&](Qt::WindowState state) { return (before & state) && !(windowState() & state); };
  if (gained(Qt::WindowFullScreen)) Event_FullScreen();
  if (gained(Qt::WindowMinimized))
    Event_Minimize();
  else if (lost(Qt::WindowMinimized) || lost(Qt::WindowMaximized))
    Event_Restore();
  else if (gained(Qt::WindowMaximized))
    Event_Maximize();
}

void Window::closeEvent(QCloseEvent* event) {
  if (closed_) return;
  if (Event_CancelClose(appQuitting_)) {
    event->ignore();
    return;
  }
  closed_ = true;
  RemoveFromList(this);
  event->accept();
  if (Window* sheet = Sheet()) sheet->Close(appQuitting_);
  if (frame_ == Frame::Sheet) ActivateParent();
}

// Some window managers activate no window after a sheet has closed, perhaps together with an alert in front of it.
void Window::ActivateParent() {
  const QWidget* active = QApplication::activeWindow();
  auto* parent = dynamic_cast<Window*>(parentWidget());
  if (!parent || parent->closed_ || (active && active != this)) return;
  QMetaObject::invokeMethod(
      parent, [parent] { parent->activateWindow(); }, Qt::QueuedConnection);
}

// Called if the control that has the focus ignores the key.
void Window::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
                        (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  QPushButton* button = isReturn ? defaultButton_ : event->matches(QKeySequence::Cancel) ? cancelButton_ : nullptr;
  if (!button && escapeCloses_ && event->matches(QKeySequence::Cancel))
    Close();
  else if (!button)
    QWidget::keyPressEvent(event);
  else if (!event->isAutoRepeat())
    button->click();
}

void Window::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  if (!isFullScreen()) frameOffset_ = geometry().topLeft() - pos();
  if (created_) Event_Moved();
}

void Window::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  FollowSize();
}

}  // namespace sumlet
