// StartRequests: the running program's side of being started again.
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
  // calls `reopen` with the files that it names. While `ready` returns false nobody gets an answer, and a start tries
  // again. Whoever else talks to the socket, talks nonsense, too much or not at all, is cut off. Without a socket it
  // does nothing.
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
