// The name is bound as a Linux abstract socket address. Binding one is atomic, so it is the lock as well; and it is
// gone with the last process that holds it, so nothing is ever stale. A socket file would leave both to us, and its
// usual place, XDG_RUNTIME_DIR, differs between a desktop, a remote shell and a timer of one and the same user.
//
// An abstract address has no owner in the file system, so each side asks the system whose process is at the other end.
// Where another user holds the address, the next one is taken; all starts of this user go through them in one order.
//
// A process that has been killed while its settings are being written leaves its writer behind, which holds the address
// until the file is whole: the next start waits for that, as for a running program that ends without an answer.
#include "shell/single_instance.h"

#include <QCryptographicHash>
#include <algorithm>
#include <system_error>

#include "framework/file/folder_item.h"
#include "shell/start_message.h"

#if defined(__linux__)

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <thread>

namespace sumlet {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr int addressesTried = 4;
constexpr int waitingStarts = 64;
constexpr milliseconds pauseBetweenTries(10);
// Who has bound an address listens within the next microseconds, unless it is somebody who keeps it from being used.
constexpr int mostRefusals = 100;

struct Address {
  sockaddr_un bytes = {};
  socklen_t length = 0;
  [[nodiscard]] const sockaddr* Get() const { return reinterpret_cast<const sockaddr*>(&bytes); }
};

Address AddressOf(std::string_view name, int number) {
  const String path = String(name) + "-" + std::to_string(number);
  Address address;
  address.bytes.sun_family = AF_UNIX;
  // The zero byte in front makes it abstract.
  const std::size_t length = std::min(path.size(), sizeof address.bytes.sun_path - 1);
  std::memcpy(address.bytes.sun_path + 1, path.data(), length);
  address.length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + length);
  return address;
}

Descriptor NewSocket() { return Descriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)); }

enum class Reply { Acknowledged, Stranger, Refused, Gone };

// Whether the expected answer arrives before `end`.
bool AwaitAnswer(const Descriptor& socket, steady_clock::time_point end) {
  String received;
  while (received.size() < startAnswer.size()) {
    const auto rest = std::chrono::ceil<milliseconds>(end - steady_clock::now());
    pollfd readable = {socket.Number(), POLLIN, 0};
    const int ready = poll(&readable, 1, static_cast<int>(std::max(rest, milliseconds(0)).count()));
    if (ready < 0 && errno == EINTR) continue;
    if (ready <= 0) return false;
    std::array<char, startAnswer.size()> bytes = {};
    const ssize_t count = recv(socket.Number(), bytes.data(), startAnswer.size() - received.size(), 0);
    if (count <= 0) return false;
    received.append(bytes.data(), static_cast<std::size_t>(count));
  }
  return received == startAnswer;
}

// Whether all of the message could be sent before `end`.
bool SendAll(const Descriptor& socket, std::string_view message, steady_clock::time_point end) {
  while (!message.empty()) {
    const auto rest = std::chrono::ceil<milliseconds>(end - steady_clock::now());
    pollfd writable = {socket.Number(), POLLOUT, 0};
    const int ready = poll(&writable, 1, static_cast<int>(std::max(rest, milliseconds(0)).count()));
    if (ready < 0 && errno == EINTR) continue;
    if (ready <= 0) return false;
    const ssize_t sent = send(socket.Number(), message.data(), message.size(), MSG_NOSIGNAL);
    if (sent < 0 && (errno == EINTR || errno == EAGAIN)) continue;
    if (sent < 0) return false;
    message.remove_prefix(static_cast<std::size_t>(sent));
  }
  return true;
}

Reply Ask(const Address& address, std::string_view message, steady_clock::time_point end) {
  const Descriptor socket = NewSocket();
  if (!socket.IsOpen()) return Reply::Gone;
  if (connect(socket.Number(), address.Get(), address.length) != 0)
    return errno == ECONNREFUSED ? Reply::Refused : Reply::Gone;  // EAGAIN: many others are waiting as well
  if (!IsOwnPeer(socket)) return Reply::Stranger;
  return SendAll(socket, message, end) && AwaitAnswer(socket, end) ? Reply::Acknowledged : Reply::Gone;
}

// An open socket when the address was free, otherwise `taken` says whether the reason is that another process has it.
Descriptor Listen(const Address& address, bool& taken) {
  Descriptor socket = NewSocket();
  const bool bound = socket.IsOpen() && bind(socket.Number(), address.Get(), address.length) == 0;
  taken = !bound && errno == EADDRINUSE;
  if (!bound || listen(socket.Number(), waitingStarts) != 0) socket.Close();
  return socket;
}

}  // namespace

Claim ClaimInstance(std::string_view name, std::string_view message, milliseconds patience) {
  const auto end = steady_clock::now() + patience;
  int number = 0;
  int refusals = 0;
  while (number < addressesTried) {
    const Address address = AddressOf(name, number);
    bool taken = false;
    Descriptor listening = Listen(address, taken);
    if (listening.IsOpen()) return {Start::First, std::move(listening)};
    if (!taken) break;
    const Reply reply = Ask(address, message, end);
    if (reply == Reply::Acknowledged) return {Start::HandedOver, {}};
    if (reply == Reply::Stranger || (reply == Reply::Refused && ++refusals == mostRefusals)) {
      ++number;
      refusals = 0;
      continue;
    }
    if (steady_clock::now() >= end) break;
    std::this_thread::sleep_for(pauseBetweenTries);
  }
  return {};
}

bool IsOwnPeer(const Descriptor& socket) {
  ucred peer = {};
  socklen_t length = sizeof peer;
  return getsockopt(socket.Number(), SOL_SOCKET, SO_PEERCRED, &peer, &length) == 0 && peer.uid == geteuid();
}

}  // namespace sumlet

#else

// Elsewhere the desktop itself starts a program once, or no such thing is known.
namespace sumlet {
Claim ClaimInstance(std::string_view /*name*/, std::string_view /*message*/, std::chrono::milliseconds /*patience*/) {
  return {};
}
bool IsOwnPeer(const Descriptor& /*socket*/) { return false; }
}  // namespace sumlet

#endif

namespace sumlet {

// Two ways of writing the path of one folder give one name. The folder need not exist.
String SingleInstanceName() {
  String folder;
  if (const auto library = SpecialFolder::UserLibrary()) {
    std::error_code error;
    const std::filesystem::path path = std::filesystem::weakly_canonical(library->Path(), error);
    folder = (error ? library->Path().lexically_normal() : path).string();
    while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
  }
  const QByteArray bytes(folder.data(), static_cast<qsizetype>(folder.size()));
  const QByteArray hash = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex().left(32);
#if defined(__linux__)
  return "sumlet-" + std::to_string(geteuid()) + "-" + hash.toStdString();
#else
  return "sumlet-" + hash.toStdString();
#endif
}

}  // namespace sumlet
