// Sends the message "remove: ID=..." of the Startup Notification Protocol 0.1 of freedesktop.org to the root windows.
#include "shell/startup_notice.h"

#include <string_view>

#if defined(SUMLET_HAS_XCB)

#include <unistd.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "framework/text/text.h"

namespace sumlet {
namespace {

constexpr unsigned timeout = 2;  // seconds

xcb_atom_t Atom(xcb_connection_t* display, std::string_view name) {
  const auto cookie = xcb_intern_atom(display, 0, static_cast<std::uint16_t>(name.size()), name.data());
  xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(display, cookie, nullptr);
  const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
  std::free(reply);
  return atom;
}

String RemovalOf(std::string_view id) {
  String message = "remove: ID=";
  for (const char c : id) {
    if (c == ' ' || c == '"' || c == '\\') message += '\\';
    message += c;
  }
  return message;
}

// In pieces of 20 bytes; a zero byte ends the message.
void Send(xcb_connection_t* display, xcb_window_t root, std::string_view message) {
  xcb_client_message_event_t event = {};
  event.response_type = XCB_CLIENT_MESSAGE;
  event.format = 8;
  event.window = xcb_generate_id(display);  // distinguishes this sender from others
  event.type = Atom(display, "_NET_STARTUP_INFO_BEGIN");
  const xcb_atom_t nextType = Atom(display, "_NET_STARTUP_INFO");
  for (std::size_t sent = 0; sent <= message.size(); sent += sizeof event.data.data8) {
    const std::string_view piece = message.substr(sent, sizeof event.data.data8);
    std::memset(event.data.data8, 0, sizeof event.data.data8);
    std::copy(piece.begin(), piece.end(), event.data.data8);
    xcb_send_event(display, 0, root, XCB_EVENT_MASK_PROPERTY_CHANGE, reinterpret_cast<const char*>(&event));
    event.type = nextType;
  }
}

}  // namespace

void EndStartupNotice() {
  const char* id = std::getenv("DESKTOP_STARTUP_ID");
  if (id == nullptr || *id == '\0' || std::getenv("DISPLAY") == nullptr) return;
  std::signal(SIGALRM, [](int) { std::_Exit(EXIT_SUCCESS); });
  alarm(timeout);
  xcb_connection_t* display = xcb_connect(nullptr, nullptr);
  if (!xcb_connection_has_error(display)) {
    for (auto screen = xcb_setup_roots_iterator(xcb_get_setup(display)); screen.rem > 0; xcb_screen_next(&screen))
      Send(display, screen.data->root, RemovalOf(id));
    std::free(xcb_get_input_focus_reply(display, xcb_get_input_focus(display),
                                        nullptr));  // waits until the server has received all
  }
  xcb_disconnect(display);
}

}  // namespace sumlet

#else

namespace sumlet {
void EndStartupNotice() {}
}  // namespace sumlet

#endif
