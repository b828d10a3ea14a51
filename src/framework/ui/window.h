// Window: a top-level window of this program, its events, and the list of all open windows.
//
// A class derived from it calls Create() at the end of the constructor of its most derived class: that builds the
// window in a fixed order, raises Event_Open last, and shows it. An open window owns itself: closing destroys it, once
// control is back at the event loop.
#pragma once

#include <QPointer>
#include <QWidget>
#include <vector>

#include "framework/text/text.h"
#include "framework/ui/control_locks.h"
#include "framework/ui/placement.h"

class QVBoxLayout;

namespace sumlet {

class Window : public QWidget {
 public:
  ~Window() override;

  // The top left corner of the window's frame on the desktop, in pixels. Where the desktop does not let windows place
  // themselves, setting has no effect.
  [[nodiscard]] Int32 Left() const { return x(); }
  [[nodiscard]] Int32 Top() const { return y(); }
  void SetLeft(Int32 left) { move(left, y()); }
  void SetTop(Int32 top) { move(x(), top); }

  // The size of the content in pixels: without the frame, and below the menu bar where there is one. A size outside the
  // window's limits takes the nearest allowed one.
  [[nodiscard]] Int32 Width() const { return width(); }
  [[nodiscard]] Int32 Height() const { return height() - MenuBarHeight(width()); }
  void SetWidth(Int32 width) { ResizeContent(width, Height()); }
  void SetHeight(Int32 height) { ResizeContent(Width(), height); }

  // Brings the window onto the screen, minimised or hidden before, in front of all others, and gives it the keyboard.
  void Show();

  // Raises Event_CancelClose and closes the window unless that refuses. True when it was closed.
  bool Close(bool appQuitting = false);

 protected:
  Window();

  // Layout, CreateControls, AddMenuHandlers and Event_Open, in this order; then the window shows.
  void Create();

  // The limits of the content's size in pixels, smallest and largest.
  void SetSizeLimits(const QSize& smallest, const QSize& largest);
  void SetPlacement(Placement placement) { placement_ = placement; }

  // Places a new control. The parent of every control is Content(); the order of creation is the order of Tab.
  [[nodiscard]] QWidget* Content() const { return content_; }
  void AddControl(QWidget& control, const QRect& bounds, Locks locks);

  virtual void Layout() {}
  virtual void CreateControls() {}
  virtual void AddMenuHandlers() {}

  virtual void Event_Open() {}
  // Raised before the window closes, by whomever. True refuses.
  virtual bool Event_CancelClose(bool /*appQuitting*/) { return false; }
  // The content has a new size, and the controls have followed it.
  virtual void Event_Resized() {}
  virtual void Event_Moved() {}
  virtual void Event_Minimize() {}
  // No longer minimised, or no longer maximised.
  virtual void Event_Restore() {}
  virtual void Event_Maximize() {}

  bool event(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct LockedControl {
    QPointer<QWidget> control;
    Locks locks;
  };

  [[nodiscard]] Int32 MenuBarHeight(Int32 width) const;
  void ResizeContent(Int32 width, Int32 height);
  void FollowSize();
  void Stagger();

  QVBoxLayout* layout_;  // the menu bar, if any, goes on top of it by QLayout::setMenuBar
  QWidget* content_;
  QSize contentSize_;  // the size that the controls are laid out for
  std::vector<LockedControl> lockedControls_;
  Placement placement_ = Placement::Default;
  bool created_ = false;
  bool appQuitting_ = false;
};

// All open windows, hidden ones included, front to back; index 0 is the front window. The order is that of activation
// and of Show; a window that never was active stands where it was created, in front of the windows of that time.
[[nodiscard]] Int32 WindowCount();
// An index out of range is a Fault.
[[nodiscard]] Window& WindowAt(Int32 index);

}  // namespace sumlet
