#include "shell/start_requests.h"

#include <QByteArray>
#include <cstddef>

#if defined(__linux__)

#include <sys/socket.h>

#include <QSocketNotifier>
#include <QTimer>
#include <array>
#include <cerrno>
#include <chrono>
#include <utility>

#include "shell/single_instance.h"
#include "shell/start_message.h"

namespace sumlet {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t mostPeers = 16;
constexpr auto peerTimeout = 5s;        // a second start sends its request at once
constexpr auto pauseAfterFailure = 1s;  // without free descriptors, accept would fail again at once

}  // namespace

class StartRequests::Peer final : public QObject {
 public:
  Peer(Descriptor socket, QObject* parent)
      : QObject(parent), socket_(std::move(socket)), readable_(socket_.Number(), QSocketNotifier::Read) {
    timer_.setSingleShot(true);
    timer_.start(peerTimeout);
  }
  void Stop() {
    readable_.setEnabled(false);
    timer_.stop();
    socket_.Close();
  }
  [[nodiscard]] const Descriptor& Socket() const { return socket_; }
  [[nodiscard]] QSocketNotifier& Readable() { return readable_; }
  [[nodiscard]] QTimer& Timeout() { return timer_; }
  String received;

 private:
  Descriptor socket_;
  QSocketNotifier readable_;
  QTimer timer_;
};

StartRequests::StartRequests(Descriptor requests, Ready ready, Reopen reopen)
    : requests_(std::move(requests)), ready_(std::move(ready)), reopen_(std::move(reopen)) {
  if (!requests_.IsOpen()) return;
  notifier_ = new QSocketNotifier(requests_.Number(), QSocketNotifier::Read, &owner_);
  QObject::connect(notifier_, &QSocketNotifier::activated, &owner_, [this] { Accept(); });
}

StartRequests::~StartRequests() = default;

void StartRequests::Accept() {
  Descriptor socket(accept4(requests_.Number(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
  if (!socket.IsOpen()) {
    if (errno == EAGAIN || errno == EINTR || errno == ECONNABORTED) return;
    notifier_->setEnabled(false);
    QTimer::singleShot(pauseAfterFailure, &owner_, [this] { notifier_->setEnabled(true); });
    return;
  }
  if (!IsPeerOfSameUser(socket)) return;
  if (peers_.size() == mostPeers) Drop(*peers_.front());
  auto* peer = new Peer(std::move(socket), &owner_);
  peers_.push_back(peer);
  QObject::connect(&peer->Readable(), &QSocketNotifier::activated, peer, [this, peer] { Read(*peer); });
  QObject::connect(&peer->Timeout(), &QTimer::timeout, peer, [this, peer] { Drop(*peer); });
}

void StartRequests::Read(Peer& peer) {
  std::array<char, 16384> bytes = {};
  const ssize_t count = recv(peer.Socket().Number(), bytes.data(), bytes.size(), 0);
  if (count < 0 && (errno == EAGAIN || errno == EINTR)) return;
  if (count > 0) peer.received.append(bytes.data(), static_cast<std::size_t>(count));
  StartRequest request;
  const RequestState state = ReadRequest(peer.received, request);
  if (state == RequestState::Unfinished && count > 0) return;
  const bool isRequest = state == RequestState::Request && ready_();
  if (isRequest) {
    // The toolkit reads this variable when it brings a window to the front.
    if (!request.token.empty()) qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(request.token));
    [[maybe_unused]] const ssize_t sent =
        send(peer.Socket().Number(), startAnswer.data(), startAnswer.size(), MSG_NOSIGNAL);
  }
  Drop(peer);
  if (isRequest) reopen_(request.files);
}

// Deletes the peer later, because one of its notifiers may be the caller.
void StartRequests::Drop(Peer& peer) {
  peers_.remove(&peer);
  peer.Stop();
  peer.deleteLater();
}

}  // namespace sumlet

#else

namespace sumlet {
StartRequests::StartRequests(Descriptor requests, Ready /*ready*/, Reopen /*reopen*/)
    : requests_(std::move(requests)) {}
StartRequests::~StartRequests() = default;
}  // namespace sumlet

#endif
