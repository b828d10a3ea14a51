// SingleInstance: of one user's starts of the program with one settings folder, one runs, and the others hand over to
// it. Starts with different settings folders do not know of each other.
//
// Needs neither an application object nor a session bus, so that a start that hands over is over at once.
#pragma once

#include <chrono>
#include <string_view>

#include "framework/file/descriptor.h"
#include "framework/text/text.h"

namespace sumlet {

enum class Start {
  First,       // this process is the running program now
  HandedOver,  // another one is, and it has acknowledged: end with status 0
  Alone        // another one may be, but it does not answer: run without being found by later starts
};

struct Claim {
  Start start = Start::Alone;
  Descriptor requests;  // for the first: the socket at which later starts ask; see StartRequests
};

// The name under which the starts of this user with the settings folder of this environment find each other.
[[nodiscard]] String SingleInstanceName();

// Of any number of processes that claim a name at the same instant exactly one is the first, until its end, however it
// ends. The others send it `message` (start_message.h). Waits for an answer no longer than `patience`: the running
// program may itself be starting up.
[[nodiscard]] Claim ClaimInstance(std::string_view name, std::string_view message, std::chrono::milliseconds patience);

// Whether the process at the other end of a connected local socket belongs to the user of this one.
[[nodiscard]] bool IsOwnPeer(const Descriptor& socket);

}  // namespace sumlet
