// The first process holds an advisory lock on a file in the settings folder. Only one process can hold it, also across
// login sessions and sandboxes that share the folder. The system releases the lock when the process ends in any way.
// The first listens at a socket and writes the socket's path into the lock file, because the socket's folder,
// $XDG_RUNTIME_DIR, differs between a desktop and a remote shell. Only the user can create files in these folders. The
// lock file is never deleted: two processes could then lock two files of the same name.
//
// A start that gets the lock still tries the sockets: the folder of the lock may have been deleted and created again
// while the first runs. If the file system does not support locks, or the settings folder is read-only, a lock file
// beside the socket is used.
#include "shell/single_instance.h"

#include <QByteArray>
#include <QCryptographicHash>
#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#include "framework/file/folder_item.h"
#include "framework/text/text.h"
#include "persistence/preferences.h"
#include "shell/start_message.h"

#if defined(__linux__)

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <thread>

#include "framework/file/file_content.h"

namespace sumlet {
namespace {

namespace fs = std::filesystem;

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr int waitingStarts = 64;
constexpr milliseconds pauseBetweenTries(10);

// Opens the folder of a path that is too long for an address, and uses the shorter path through its descriptor.
class Address {
 public:
  explicit Address(const fs::path& path) {
    String name = path;
    if (name.size() >= sizeof bytes_.sun_path) {
      folder_ = Descriptor(open(path.parent_path().c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
      name = "/proc/self/fd/" + std::to_string(folder_.Number()) + "/" + path.filename().string();
    }
    bytes_.sun_family = AF_UNIX;
    name.copy(bytes_.sun_path, sizeof bytes_.sun_path - 1);
  }
  [[nodiscard]] const sockaddr* Get() const { return reinterpret_cast<const sockaddr*>(&bytes_); }
  [[nodiscard]] static socklen_t Length() { return sizeof(sockaddr_un); }

 private:
  Descriptor folder_;
  sockaddr_un bytes_ = {};
};

Descriptor NewSocket() { return Descriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)); }

enum class Reply { Acknowledged, NoListener, NoAnswer };

// Returns whether the expected answer arrives before `end`.
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

// Returns whether the whole message was sent before `end`.
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

Reply Ask(const fs::path& path, std::string_view message, steady_clock::time_point end) {
  const Descriptor socket = NewSocket();
  const Address address(path);
  if (!socket.IsOpen()) return Reply::NoAnswer;
  if (connect(socket.Number(), address.Get(), Address::Length()) != 0)
    return errno == EAGAIN ? Reply::NoAnswer : Reply::NoListener;  // EAGAIN: many others are waiting as well
  if (!IsPeerOfSameUser(socket)) return Reply::NoListener;
  return SendAll(socket, message, end) && AwaitAnswer(socket, end) ? Reply::Acknowledged : Reply::NoAnswer;
}

Reply AskAll(const std::vector<fs::path>& sockets, std::string_view message, steady_clock::time_point end) {
  Reply last = Reply::NoListener;
  for (const fs::path& socket : sockets) {
    const Reply reply = Ask(socket, message, end);
    if (reply == Reply::Acknowledged) return reply;
    if (reply == Reply::NoAnswer) last = reply;
  }
  return last;
}

struct Lock {
  fs::path path;    // of the lock file; empty where no file can be locked
  Descriptor file;  // open if this process holds the lock; if closed and `path` is set, another one does
};

// Tries a file opened for reading first: one that is open for writing prevents remounting its file system read-only.
// The locks of some network file systems require a writable one.
Lock TryLock(const std::vector<fs::path>& files) {
  for (const fs::path& path : files) {
    for (const int access : {O_RDONLY, O_RDWR}) {
      Descriptor file(open(path.c_str(), access | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR));
      if (!file.IsOpen()) continue;
      if (flock(file.Number(), LOCK_EX | LOCK_NB) == 0) return {path, std::move(file)};
      if (errno == EWOULDBLOCK) return {path, {}};
    }
  }
  return {};
}

// Returns a closed descriptor if no socket can be created. If `lock` is held, later starts then report that the program
// does not answer.
Descriptor Listen(const std::vector<fs::path>& sockets, const Lock& lock) {
  for (const fs::path& path : sockets) {
    Descriptor socket = NewSocket();
    const Address address(path);
    unlink(path.c_str());  // nobody listens there
    if (!socket.IsOpen() || bind(socket.Number(), address.Get(), Address::Length()) != 0) continue;
    if (listen(socket.Number(), waitingStarts) != 0) continue;
    if (lock.file.IsOpen()) (void)OverwriteContent(lock.path, path.native());
    return socket;
  }
  return {};
}

// Empty if other users could create files in the folder.
std::optional<fs::path> RuntimeFolder() {
  const char* name = std::getenv("XDG_RUNTIME_DIR");
  struct stat status = {};
  if (name == nullptr || name[0] != '/' || stat(name, &status) != 0) return {};
  if (!S_ISDIR(status.st_mode) || status.st_uid != geteuid() || (status.st_mode & (S_IWGRP | S_IWOTH)) != 0) return {};
  return fs::path(name);
}

// The same for every spelling of the folder's path. The folder need not exist.
String NameOf(const fs::path& folder) {
  std::error_code error;
  const fs::path canonical = fs::weakly_canonical(folder, error);
  String text = (error ? folder.lexically_normal() : canonical).string();
  while (text.size() > 1 && text.back() == '/') text.pop_back();
  const QByteArray bytes(text.data(), static_cast<qsizetype>(text.size()));
  return "sumlet-" + QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex().left(16).toStdString();
}

}  // namespace

InstancePaths PathsForSettings() {
  InstancePaths paths;
  const std::optional<FolderItem> library = SpecialFolder::UserLibrary();
  const std::optional<FolderItem> settings = Preferences::GetPrefFile(true);
  if (settings) paths.locks.push_back(settings->Path().parent_path() / "lock");
  if (const std::optional<fs::path> runtime = RuntimeFolder()) {
    const String name = NameOf(library ? library->Path() : fs::path());
    paths.locks.push_back(*runtime / (name + ".lock"));
    paths.sockets.push_back(*runtime / name);
  }
  if (settings) paths.sockets.push_back(settings->Path().parent_path() / "socket");
  return paths;
}

Claim ClaimInstance(const InstancePaths& paths, std::string_view message, milliseconds timeout) {
  const auto end = steady_clock::now() + timeout;
  do {
    Lock lock = TryLock(paths.locks);
    std::vector<fs::path> sockets = paths.sockets;
    const bool isTaken = !lock.path.empty() && !lock.file.IsOpen();
    if (isTaken) sockets.insert(sockets.begin(), fs::path(ReadContent(lock.path).value_or("")));
    const Reply reply = AskAll(sockets, message, end);
    if (reply == Reply::Acknowledged) return {Start::HandedOver, {}, {}};
    if (reply == Reply::NoListener && !isTaken) {
      Descriptor requests = Listen(paths.sockets, lock);
      const bool isFirst = requests.IsOpen() || lock.file.IsOpen();
      return {isFirst ? Start::First : Start::Alone, std::move(requests), std::move(lock.file)};
    }
    lock = {};
    std::this_thread::sleep_for(pauseBetweenTries);
  } while (steady_clock::now() < end);
  return {Start::Unanswered, {}, {}};
}

bool IsPeerOfSameUser(const Descriptor& socket) {
  ucred peer = {};
  socklen_t length = sizeof peer;
  return getsockopt(socket.Number(), SOL_SOCKET, SO_PEERCRED, &peer, &length) == 0 && peer.uid == geteuid();
}

}  // namespace sumlet

#else

// On other systems every start runs alone. macOS itself starts a program only once.
namespace sumlet {
InstancePaths PathsForSettings() { return {}; }
Claim ClaimInstance(const InstancePaths& /*paths*/, std::string_view /*message*/,
                    std::chrono::milliseconds /*timeout*/) {
  return {};
}
bool IsPeerOfSameUser(const Descriptor& /*socket*/) { return false; }
}  // namespace sumlet

#endif
