// Window: a top-level window of this program, its events, and the list of all open windows.
//
// The most derived class calls Create() at the end of its constructor, which builds the window in a fixed order, raises
// Event_Open last, and shows the window. An open document window owns itself; a sheet belongs to its parent. Closing a
// window destroys it once control returns to the event loop.
#pragma once

#include <QDeadlineTimer>
#include <QPoint>
#include <QPointer>
#include <QRect>
#include <QSize>
#include <QWidget>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "framework/hook.h"
#include "framework/text/text.h"
#include "framework/ui/placement.h"

class QMenuBar;
class QPushButton;
class QVBoxLayout;

namespace sumlet {

class MenuBar;

enum class Frame {
  Document = 0,  // a window of its own
  Sheet = 8      // belongs to another window, which is blocked while the sheet is open
};

class Window : public QWidget {
 public:
  ~Window() override;

  // The top left corner of the window's frame on the desktop, in pixels. On Wayland, where windows neither know nor
  // choose their position, it is the corner last set.
  [[nodiscard]] Int32 Left() const { return Corner().x(); }
  [[nodiscard]] Int32 Top() const { return Corner().y(); }
  void SetLeft(Int32 left) { MoveTo(left, Top()); }
  void SetTop(Int32 top) { MoveTo(Left(), top); }

  // The size of the content in pixels, without the frame and the menu bar. The setters keep it within the limits of
  // SetSizeLimits. Width and height are each at most 16384, and their product is at most 2^26.
  [[nodiscard]] Int32 Width() const { return width(); }
  [[nodiscard]] Int32 Height() const { return height() - MenuBarHeight(width()); }
  void SetWidth(Int32 width) { ResizeContent(width, Height()); }
  void SetHeight(Int32 height) { ResizeContent(Width(), height); }

  // Shows the window in front of all others, also if it was minimised or hidden, and activates it unless a
  // SingleActivation exists. Does nothing if the window has closed.
  void Show();

  // Shows a sheet at the top of `parent` and returns immediately; the sheet's events report the outcome. The sheet
  // closes with `parent`.
  void ShowWithin(Window& parent);

  // Whether the window draws the menu bar; its shortcuts work either way.
  [[nodiscard]] bool MenuBarVisible() const { return menuBarVisible_ && frame_ != Frame::Sheet; }
  // Shows the bar above the content, which keeps its size. The window takes ownership of the bar.
  void SetMenuBar(QMenuBar* bar);
  // Whether the window can be minimised.
  [[nodiscard]] bool MinimizeButton() const { return minimizeButton_; }

  // Enables the menu items that this window can handle now.
  void EnableMenuItems(MenuBar& menuBar) { Event_EnableMenuItems(menuBar); }
  // Runs the handler bound to a menu item's name. Returns false if there is none or it did not handle the command.
  bool HandleCommand(const std::string& name);

  // Full screen, as the window manager provides it. WindowedBounds returns the frame's top left corner and the
  // content's size; in full screen, those from before. A window that has just come up may not know its own bounds;
  // `windowedBounds` then replaces them.
  [[nodiscard]] bool IsFullScreen() const { return isFullScreen(); }
  void ToggleFullScreen(std::optional<QRect> windowedBounds = {});
  [[nodiscard]] QRect WindowedBounds() const;

  // Raises Event_CancelClose and closes the window unless that refuses. Returns whether it closed.
  bool Close(bool appQuitting = false);

 protected:
  Window();

  // Calls Layout, attaches the menus, places the window, calls CreateControls, AddMenuHandlers and Event_Open, and
  // shows the window. Does not show a sheet (see ShowWithin), nor a window that is not `visible` (see Show). A
  // position set before the window first shows is applied exactly. Until the window manager has added the frame, Left()
  // and Top() may be off by its size.
  void Create(bool visible = true);

  // Sets the smallest and largest size of the content, in pixels.
  void SetSizeLimits(const QSize& smallest, const QSize& largest);
  void SetPlacement(Placement placement) { placement_ = placement; }
  void SetFrame(Frame frame) { frame_ = frame; }

  // Gives the window a fixed size, in pixels of content. Such a window is centred, shows no menu bar, and cannot be
  // minimised or maximised.
  void SetFixed(const QSize& size);
  // Makes Escape close the window unless a control uses the key.
  void SetEscapeCloses() { escapeCloses_ = true; }
  void SetMenuBarVisible(bool visible) { menuBarVisible_ = visible; }
  void SetMinimizeButton(bool present) { minimizeButton_ = present; }
  void BindMenuHandler(const std::string& name, std::function<bool()> handler) { handlers_[name] = std::move(handler); }

  // Places a new control, which has been created with Content() as its parent. Tab follows the order of creation.
  // `locks` are the edges of the window to which the control keeps its distance (placement.h).
  [[nodiscard]] QWidget* Content() const { return content_; }
  void AddControl(QWidget& control, const QRect& bounds, Locks locks);

  // Sets the buttons that Return and Escape press if the control with the focus ignores the key. A button with the
  // focus takes Return. The buttons must live as long as the window.
  void SetDefaultButton(QPushButton& button);
  void SetCancelButton(QPushButton& button) { cancelButton_ = &button; }

  virtual void Layout() {}
  virtual void CreateControls() {}
  virtual void AddMenuHandlers() {}

  virtual void Event_Open() {}
  virtual void Event_EnableMenuItems(MenuBar& /*menuBar*/) {}
  // Raised before the window closes for any reason. Return true to keep it open.
  virtual bool Event_CancelClose(bool /*appQuitting*/) { return false; }
  // The content has a new size, and the controls have followed it.
  virtual void Event_Resized() {}
  virtual void Event_Moved() {}
  // The window has become active, and has no open sheet.
  virtual void Event_Activate() {}
  // The pointer has entered the window.
  virtual void Event_MouseEnter() {}
  virtual void Event_Minimize() {}
  // No longer minimised, or no longer maximised.
  virtual void Event_Restore() {}
  virtual void Event_Maximize() {}
  // The window enters full screen, through the menu or the desktop.
  virtual void Event_FullScreen() {}

  bool event(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct LockedControl {
    QPointer<QWidget> control;
    Locks locks;
  };

  [[nodiscard]] Int32 MenuBarHeight(Int32 width) const;
  [[nodiscard]] QPoint Corner() const;
  void MoveTo(Int32 left, Int32 top);
  void ResizeContent(Int32 width, Int32 height);
  void FollowSize();
  void ComeUp();
  void ActivateParent();
  // The open sheet of this window; nullptr for none.
  [[nodiscard]] Window* Sheet() const;
  void Stagger();
  void Centre();

  QVBoxLayout* layout_ = nullptr;  // the menu bar, if any, is set by QLayout::setMenuBar
  QWidget* content_;
  QPoint corner_;       // as last set
  QPoint frameOffset_;  // from the frame's corner to the window's own, while not in full screen
  QSize contentSize_;   // the size that the controls are laid out for
  QRect boundsBeforeToggle_;
  QDeadlineTimer toggling_;  // expires once the window manager has changed the state and the bounds
  std::vector<LockedControl> lockedControls_;
  QPushButton* defaultButton_ = nullptr;
  QPushButton* cancelButton_ = nullptr;
  std::map<std::string, std::function<bool()>> handlers_;
  bool menuBarVisible_ = true;
  bool minimizeButton_ = true;
  bool escapeCloses_ = false;
  Placement placement_ = Placement::Default;
  Frame frame_ = Frame::Document;
  bool created_ = false;
  bool closed_ = false;
  bool appQuitting_ = false;
};

// While an instance exists, windows show without being activated. Destroying the last instance activates the front
// window. Activating several windows in a row would make their order random, because the desktop answers late and in
// any order.
class SingleActivation {
 public:
  SingleActivation();
  ~SingleActivation();
  SingleActivation(const SingleActivation&) = delete;
  SingleActivation& operator=(const SingleActivation&) = delete;
};

// All open windows, hidden ones included, front to back; index 0 is the front window. A new window
// starts at the front. Activation and Show move a window to the front.
[[nodiscard]] Int32 WindowCount();
// An index out of range is a Fault.
[[nodiscard]] Window& WindowAt(Int32 index);

// The frontmost open window of the class; nullptr when there is none. A window that has closed is not open any more,
// even if it lives on for a moment.
template <class WindowClass>
[[nodiscard]] WindowClass* OpenWindow() {
  for (Int32 i = 0; i < WindowCount(); ++i)
    if (auto* open = dynamic_cast<WindowClass*>(&WindowAt(i))) return open;
  return nullptr;
}

// Gives a new window its menus. Runs when the window has set its properties.
extern Hook<void(Window& window)> AttachMenus;
// Runs after a window has been added to the list or removed from it. That window may be half built or half destroyed.
extern Hook<void()> WindowListChanged;

}  // namespace sumlet
