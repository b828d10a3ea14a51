// The toolkit knows which window is active but no order of the others, and what the desktop's window manager knows
// cannot be read everywhere. So the order is kept here: each activation moves a window to the front of the list.
#include "framework/ui/window.h"

#include <QCloseEvent>
#include <QCursor>
#include <QGuiApplication>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QScreen>
#include <QVBoxLayout>
#include <optional>
#include <utility>

namespace sumlet {
namespace {

Array<Window*>& OpenWindows() {
  static Array<Window*> windows;
  return windows;
}

void Forget(const Window* window) {
  Array<Window*>& windows = OpenWindows();
  for (Int32 i = windows.Ubound(); i >= 0; --i)
    if (windows[i] == window) windows.Remove(i);
}

void MoveToFront(Window* window) {
  Forget(window);
  OpenWindows().Insert(0, window);
}

}  // namespace

Int32 WindowCount() { return OpenWindows().Ubound() + 1; }
Window& WindowAt(Int32 index) { return *OpenWindows()[index]; }

Window::Window() : layout_(new QVBoxLayout(this)), content_(new QWidget) {
  setAttribute(Qt::WA_DeleteOnClose);
  layout_->setContentsMargins(0, 0, 0, 0);
  // The limits of the window are those of the content, with the menu bar on top.
  layout_->setSizeConstraint(QLayout::SetMinAndMaxSize);
  layout_->addWidget(content_);
  MoveToFront(this);
}

Window::~Window() { Forget(this); }

void Window::Create() {
  Layout();
  if (placement_ == Placement::Staggered) Stagger();
  CreateControls();
  AddMenuHandlers();
  Event_Open();
  created_ = true;
  show();
}

void Window::Show() {
  MoveToFront(this);
  if (isMinimized()) setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
}

bool Window::Close(bool appQuitting) {
  const QScopedValueRollback quitting(appQuitting_, appQuitting);
  return close();
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

void Window::ResizeContent(Int32 width, Int32 height) {
  layout_->activate();  // brings the window's limits up to date
  resize(width, height + MenuBarHeight(width));
  FollowSize();  // a hidden window hears of its new size only when it is shown
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
  const QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
  if (!screen) screen = QGuiApplication::primaryScreen();
  if (!screen) return;
  // The frame is not known before the window shows: a title bar is as high as the step.
  const QSize frame(width(), height() + StaggerStep);
  previous = StaggeredCorner(frame, screen->availableGeometry(), previous);
  move(*previous);
}

bool Window::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate) MoveToFront(this);
  return QWidget::event(event);
}

void Window::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange) return;
  const Qt::WindowStates before = static_cast<QWindowStateChangeEvent*>(event)->oldState();
  const auto gained = [&](Qt::WindowState state) { return !(before & state) && (windowState() & state); };
  const auto lost = [&](Qt::WindowState state) { return (before & state) && !(windowState() & state); };
  if (gained(Qt::WindowMinimized))
    Event_Minimize();
  else if (lost(Qt::WindowMinimized) || lost(Qt::WindowMaximized))
    Event_Restore();
  else if (gained(Qt::WindowMaximized))
    Event_Maximize();
}

void Window::closeEvent(QCloseEvent* event) {
  if (Event_CancelClose(appQuitting_)) {
    event->ignore();
    return;
  }
  Forget(this);
  event->accept();
}

void Window::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  if (created_) Event_Moved();
}

void Window::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  FollowSize();
}

}  // namespace sumlet
