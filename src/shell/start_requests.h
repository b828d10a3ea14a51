// StartRequests: receives the messages of later starts in the running program.
#pragma once

#include <QObject>
#include <functional>
#include <list>
#include <vector>

#include "framework/file/descriptor.h"
#include "framework/text/text.h"

class QSocketNotifier;

namespace sumlet {

class StartRequests {
 public:
  using Reopen = std::function<void(const std::vector<String>& files)>;
  using Ready = std::function<bool()>;

  // Answers the requests that arrive at `requests`, the socket of a Claim, on the event loop: acknowledges each, then
  // calls `reopen` with its files. While `ready` returns false, does not answer, and the start tries again. Disconnects
  // peers that send an invalid message, too much or nothing. Does nothing without a socket.
  StartRequests(Descriptor requests, Ready ready, Reopen reopen);
  StartRequests(const StartRequests&) = delete;
  StartRequests& operator=(const StartRequests&) = delete;
  ~StartRequests();

 private:
  class Peer;

  void Accept();
  void Read(Peer& peer);
  void Drop(Peer& peer);

  Descriptor requests_;
  Ready ready_;
  Reopen reopen_;
  QObject owner_;  // of the notifiers and peers
  QSocketNotifier* notifier_ = nullptr;
  std::list<Peer*> peers_;  // the oldest in front
};

}  // namespace sumlet
