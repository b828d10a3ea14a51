// Measures how long a program takes to show its windows: first_paint COUNT COMMAND [ARGUMENT...]
//
// Watches the display from outside, so all toolkits are measured alike: a window is painted when it is visible and has
// more than one colour. Ignores windows that the window manager does not manage, such as menus, and windows smaller
// than any document. The windows must not cover each other.
//
// Prints the process and the milliseconds from its start to the first and to the last painted of COUNT windows. Then
// waits for the end of its input, ends the program, and exits with status 0.
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/Xdamage.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>

extern char** environ;

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds patience(30);
constexpr int smallestSide = 60;  // pixels

struct Watched {
  Damage damage = 0;
  bool painted = false;
};

// A window may disappear while this program queries it.
int Ignore(Display* /*display*/, XErrorEvent* /*error*/) { return 0; }

bool HasSeveralColours(const XImage& image) {
  const char* first = image.data;
  const int bytes = image.bits_per_pixel / 8;
  for (int y = 0; y < image.height; ++y) {
    const char* row = image.data + static_cast<std::ptrdiff_t>(y) * image.bytes_per_line;
    for (int x = 0; x < image.width; ++x)
      if (!std::equal(first, first + bytes, row + static_cast<std::ptrdiff_t>(x) * bytes)) return true;
  }
  return false;
}

// The window manager sets this property only on a program's main windows, not on the frames around them.
bool IsManaged(Display* display, Window window) {
  static const Atom wmState = XInternAtom(display, "WM_STATE", False);
  Atom type = None;
  int format = 0;
  unsigned long items = 0;
  unsigned long rest = 0;
  unsigned char* value = nullptr;
  XGetWindowProperty(display, window, wmState, 0, 0, False, wmState, &type, &format, &items, &rest, &value);
  if (value != nullptr) XFree(value);
  return type == wmState;
}

bool IsPainted(Display* display, Window window) {
  if (!IsManaged(display, window)) return false;
  XWindowAttributes attributes = {};
  if (XGetWindowAttributes(display, window, &attributes) == 0 || attributes.map_state != IsViewable) return false;
  if (std::min(attributes.width, attributes.height) < smallestSide) return false;
  const std::unique_ptr<XImage, int (*)(XImage*)> image(
      XGetImage(display, window, 0, 0, static_cast<unsigned>(attributes.width),
                static_cast<unsigned>(attributes.height), AllPlanes, ZPixmap),
      [](XImage* pixels) { return XDestroyImage(pixels); });
  return image && HasSeveralColours(*image);
}

class Watch {
 public:
  Watch() : display_(XOpenDisplay(nullptr)) {
    if (display_ == nullptr) Fail("there is no display");
    XSetErrorHandler(Ignore);
    int errorBase = 0;
    if (XDamageQueryExtension(display_, &damageEvent_, &errorBase) == 0) Fail("the display does not tell of painting");
    XSelectInput(display_, DefaultRootWindow(display_), SubstructureNotifyMask);
    XSync(display_, False);
  }
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;
  ~Watch() { XCloseDisplay(display_); }

  [[noreturn]] static void Fail(const char* why) {
    std::fprintf(stderr, "first_paint: %s\n", why);
    std::_Exit(1);
  }

  // Waits for a change and returns the number of windows painted so far. Negative when the time is over.
  int Next(Clock::time_point end) {
    pollfd connection = {ConnectionNumber(display_), POLLIN, 0};
    while (XPending(display_) == 0) {
      const auto rest = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
      if (poll(&connection, 1, static_cast<int>(std::max<std::int64_t>(rest.count(), 0))) == 0) return -1;
    }
    XEvent event;
    XNextEvent(display_, &event);
    if (event.type == CreateNotify && event.xcreatewindow.override_redirect == False)
      windows_[event.xcreatewindow.window].damage =
          XDamageCreate(display_, event.xcreatewindow.window, XDamageReportNonEmpty);
    if (event.type == damageEvent_ + XDamageNotify) Look(reinterpret_cast<XDamageNotifyEvent&>(event));
    return painted_;
  }

 private:
  void Look(const XDamageNotifyEvent& event) {
    XDamageSubtract(display_, event.damage, None, None);
    const auto found = windows_.find(event.drawable);
    if (found == windows_.end() || found->second.painted || !IsPainted(display_, event.drawable)) return;
    found->second.painted = true;
    ++painted_;
  }

  Display* display_;
  int damageEvent_ = 0;
  std::map<Window, Watched> windows_;
  int painted_ = 0;
};

double Milliseconds(Clock::duration time) { return std::chrono::duration<double, std::milli>(time).count(); }

void WaitForEndOfInput() {
  char byte = 0;
  while (read(STDIN_FILENO, &byte, 1) > 0) {
  }
}

void End(pid_t process) {
  kill(process, SIGTERM);
  for (int tries = 0; tries < 200; ++tries) {
    if (waitpid(process, nullptr, WNOHANG) != 0) return;
    usleep(10'000);
  }
  kill(process, SIGKILL);
  waitpid(process, nullptr, 0);
}

}  // namespace

int main(int argc, char** argv) {
  const int count = argc < 3 ? 0 : std::atoi(argv[1]);
  if (count < 1) Watch::Fail("usage: first_paint COUNT COMMAND [ARGUMENT...]");
  Watch watch;
  pid_t process = 0;
  const auto start = Clock::now();
  if (posix_spawnp(&process, argv[2], nullptr, nullptr, argv + 2, environ) != 0)
    Watch::Fail("there is no such program");
  Clock::duration first{};
  for (int painted = 0; painted < count;) {
    painted = watch.Next(start + patience);
    if (painted < 0) break;
    if (painted == 1 && first == Clock::duration{}) first = Clock::now() - start;
    if (painted == count)
      std::printf("%d %.2f %.2f\n", process, Milliseconds(first), Milliseconds(Clock::now() - start));
  }
  std::fflush(stdout);
  WaitForEndOfInput();
  End(process);
  return 0;
}
